#pragma once

#include <QCache>
#include <QPixmap>
#include <QProxyStyle>
#include <QSize>

class QWidget;

// The application's style, except that line-edit frames and check-box
// indicators are drawn once per look and blitted afterwards. Styles draw
// both with antialiased rounded strokes; an editor shows up to four of each
// and is filled again on every selection, so drawing them was most of the
// time between a selection and a shown editor. What is blitted is what the
// application's style draws; an antialiased edge blended onto a clear image
// first may round one step the other way, no more.
class PanelCacheStyle : public QProxyStyle
{
    Q_OBJECT

public:
    // Lends the shared style to a line edit or check box while a Scope lives;
    // otherwise, or when the application's style cannot be copied (a style
    // sheet, a style that no style plug-in makes), or for a spin box's own
    // line edit, the widget keeps the application's.
    static void use(QWidget* widget);

    // The shared style lives as long as the Scope that made it; a Scope
    // made while another lives changes nothing. When the Scope ends, widgets
    // still using the style fall back to the application's, so a plug-in
    // that is unloaded leaves no style of its code behind.
    class Scope
    {
    public:
        Scope();
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        bool m_owner = false;
    };

    // The shared style while a Scope lives, else null.
    static PanelCacheStyle* shared();

    // How many distinct looks have been drawn and kept.
    int cachedLooks() const;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;

private:
    explicit PanelCacheStyle(QStyle* base);

    struct Look
    {
        int element;
        QSize size;
        quint64 state;
        qint64 palette;
        int colorGroup;
        int direction;
        int lineWidth;
        int features;
        qreal devicePixelRatio;
        bool operator==(const Look& other) const;
    };
    friend uint qHash(const Look& look, uint seed);

    static bool drawsCached(PrimitiveElement element, const QStyleOption* option, const QPainter* painter);

    // Bounded by bytes; the looks an editor shows are a few kilobytes each.
    mutable QCache<Look, QPixmap> m_looks;
};
