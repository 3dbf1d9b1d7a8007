#include "FxSFImageLabel.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>

FxSFImageLabel::FxSFImageLabel(int width, int height, QWidget* parent, const char* name)
    : QLabel(parent)
    , popup(new QLabel(this, Qt::Popup))
{
    if (name)
        setObjectName(QLatin1String(name));
    setFixedSize(width, height);
    setScaledContents(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    popup->setObjectName(QStringLiteral("pixmapLabel"));
    popup->setFrameShape(QFrame::StyledPanel);
    popup->setFrameShadow(QFrame::Raised);
    popup->setScaledContents(true);
}

FxSFImageLabel::~FxSFImageLabel() = default;

// The popup opens at the thumbnail, moved back inside the screen when it
// would run off its right or bottom edge. Being a popup, it closes at the
// next click outside it.
void FxSFImageLabel::mouseMoveEvent(QMouseEvent* event)
{
    if (popup->isHidden()) {
        QPoint corner = mapToGlobal(QPoint(0, 0));
        const QScreen* screen = QGuiApplication::primaryScreen();
        const QRect desktop = screen ? screen->geometry() : QRect();
        if (corner.x() > desktop.width() - popup->width())
            corner.rx() -= popup->width();
        if (corner.y() > desktop.height() - popup->height())
            corner.ry() -= popup->height();
        popup->move(corner);
        popup->show();
    }
    QLabel::mouseMoveEvent(event);
}
