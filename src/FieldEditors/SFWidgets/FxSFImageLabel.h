#pragma once

#include <QLabel>

// A thumbnail that shows the image enlarged in a popup while the mouse is
// over it.
class FxSFImageLabel : public QLabel
{
    Q_OBJECT
    Q_DISABLE_COPY(FxSFImageLabel)

public:
    FxSFImageLabel(int width, int height, QWidget* parent, const char* name);
    ~FxSFImageLabel() override;

    QLabel* popupLabel() const { return popup; }

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    QLabel* popup = nullptr;
};
