#include "PanelCacheStyle.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QHashFunctions>
#include <QImage>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

#include <cmath>
#include <iterator>

namespace {

PanelCacheStyle* s_shared = nullptr;

// A few hundred looks; far more than the editors ever show at one size.
constexpr int kCacheBytes = 2 * 1024 * 1024;

// Styles whose line-edit frames and check-box indicators depend on nothing
// but the option: no animation, no look-up of the widget. Other styles (a
// desktop's own, with hover and focus animations) are left to draw live.
const char* const kStillStyles[] = {"fusion", "windows"};

bool isStill(const QString& key)
{
    for (const char* still : kStillStyles) {
        if (key.compare(QLatin1String(still), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

} // namespace

PanelCacheStyle::Scope::Scope()
{
    if (s_shared || !qApp || !qApp->styleSheet().isEmpty())
        return;
    // The base must be a style of its own: a proxy owns and deletes it, and
    // the application's style is not ours to delete. The style plug-ins name
    // each style they make after its key.
    const QString key = QApplication::style()->objectName();
    if (!isStill(key))
        return;
    if (QStyle* base = QStyleFactory::create(key)) {
        s_shared = new PanelCacheStyle(base);
        m_owner = true;
    }
}

PanelCacheStyle::Scope::~Scope()
{
    if (!m_owner)
        return;
    delete s_shared;
    s_shared = nullptr;
}

PanelCacheStyle::PanelCacheStyle(QStyle* base)
    : QProxyStyle(base)
    , m_looks(kCacheBytes)
{
    setObjectName(base->objectName());
}

PanelCacheStyle* PanelCacheStyle::shared()
{
    return s_shared;
}

void PanelCacheStyle::use(QWidget* widget)
{
    if (!widget || !s_shared || !widget->styleSheet().isEmpty())
        return;
    // A spin box draws its line edit's frame itself, and styles ask for the
    // parent to know: that frame is not the same look as a free one.
    if (qobject_cast<const QAbstractSpinBox*>(widget->parentWidget()))
        return;
    widget->setStyle(s_shared);
}

int PanelCacheStyle::cachedLooks() const
{
    return m_looks.count();
}

bool PanelCacheStyle::Look::operator==(const Look& other) const
{
    return element == other.element && size == other.size && state == other.state &&
           palette == other.palette && colorGroup == other.colorGroup && direction == other.direction &&
           lineWidth == other.lineWidth && features == other.features &&
           devicePixelRatio == other.devicePixelRatio;
}

uint qHash(const PanelCacheStyle::Look& look, uint seed)
{
    const qint64 parts[] = {look.element,       look.size.width(),
                            look.size.height(), qint64(look.state),
                            look.palette,       look.colorGroup,
                            look.direction,     look.lineWidth,
                            look.features,      qint64(look.devicePixelRatio * 1000)};
    return qHashRange(std::begin(parts), std::end(parts), seed);
}

bool PanelCacheStyle::drawsCached(PrimitiveElement element, const QStyleOption* option,
                                  const QPainter* painter)
{
    if (element != PE_PanelLineEdit && element != PE_IndicatorCheckBox)
        return false;
    if (!option || !painter || !painter->device() || option->rect.isEmpty())
        return false;
    // A blit equals a drawing only where pixels land on the same places and
    // blend the same way: whole-pixel translations, plain opaque blending
    // (under opacity, overlapping strokes would blend once instead of twice).
    const QTransform& transform = painter->deviceTransform();
    if (transform.type() > QTransform::TxTranslate || transform.dx() != std::floor(transform.dx()) ||
        transform.dy() != std::floor(transform.dy()))
        return false;
    return painter->compositionMode() == QPainter::CompositionMode_SourceOver && painter->opacity() == 1.0;
}

void PanelCacheStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                    const QWidget* widget) const
{
    if (!drawsCached(element, option, painter)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const qreal ratio = painter->device()->devicePixelRatioF();
    const Look look{int(element),
                    option->rect.size(),
                    quint64(option->state),
                    option->palette.cacheKey(),
                    int(option->palette.currentColorGroup()),
                    int(option->direction),
                    frame ? frame->lineWidth : -1,
                    frame ? int(frame->features) : -1,
                    ratio};
    const QPixmap* drawn = m_looks.object(look);
    if (!drawn) {
        QImage image((QSizeF(option->rect.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        QPainter imagePainter(&image);
        imagePainter.setRenderHints(painter->renderHints());
        // Moving the painter, not the option, keeps the option's own type.
        imagePainter.translate(-option->rect.topLeft());
        QProxyStyle::drawPrimitive(element, option, &imagePainter, widget);
        imagePainter.end();
        auto* pixmap = new QPixmap(QPixmap::fromImage(std::move(image)));
        const int bytes = pixmap->width() * pixmap->height() * 4;
        drawn = pixmap;
        if (!m_looks.insert(look, pixmap, bytes)) {
            // Larger than the whole cache: draw it directly, keep nothing.
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
    }
    painter->drawPixmap(option->rect.topLeft(), *drawn);
}
