#pragma once

// A user's drag on a QSlider, the way the tests play it: press on the
// handle, move with the button held, release.

#include <QApplication>
#include <QMouseEvent>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QtTest>

namespace SliderDrag {

inline QPoint handleCentre(QSlider* slider)
{
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.orientation = slider->orientation();
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();
    option.sliderPosition = slider->sliderPosition();
    option.sliderValue = slider->value();
    option.upsideDown = slider->invertedAppearance();
    return slider->style()
        ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider)
        .center();
}

// QTest's own mouseMove sends no held button, which a slider needs to drag.
inline void moveHeld(QSlider* slider, const QPoint& to)
{
    QMouseEvent move(QEvent::MouseMove, to, slider->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(slider, &move);
}

// A user's drag: press on the handle, move with the button held by each
// offset in turn, release at the last.
inline void drag(QSlider* slider, const QList<int>& offsets)
{
    const QPoint start = handleCentre(slider);
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, start);
    for (int dx : offsets)
        moveHeld(slider, start + QPoint(dx, 0));
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, start + QPoint(offsets.last(), 0));
}

} // namespace SliderDrag
