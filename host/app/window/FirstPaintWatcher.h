#pragma once

#include <QObject>

class QWidget;

// Tells once when a window has painted for the first time.
class FirstPaintWatcher : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(FirstPaintWatcher)

public:
    explicit FirstPaintWatcher(QWidget* window);

signals:
    void painted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* m_window;
};
