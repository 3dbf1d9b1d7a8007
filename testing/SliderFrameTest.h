#pragma once

// The editor a slider frame belongs to, as the slider tests stand it in,
// and the window the frames are placed in.

#include <FxRealSlider.h>
#include <KalFieldEditors.h>

#include <QHBoxLayout>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QWidget>

#include <memory>

// An owner that writes down what the frame asked of it.
class OwnerProbe : public KalFieldEditors
{
public:
    void updateWidget() override {}
    void setRefreshEnabled(bool enabled) override
    {
        calls << (enabled ? QStringLiteral("refresh true") : QStringLiteral("refresh false"));
    }
    void swapValues(int, int) override {}
    void cellOperation(int, int) override {}
    void setValueFromText(int row, int column, QString text) override
    {
        calls << QStringLiteral("text %1 %2 %3").arg(row).arg(column).arg(text);
    }
    void setValueAt(int, const void*) override {}
    void applyChanges() override
    {
        calls << QStringLiteral("apply");
        if (real)
            applied << real->getValue();
    }

    QStringList calls;
    QList<double> applied;
    FxRealSlider* real = nullptr;
};

// A fresh window to place a frame in, and a fresh owner, for every test
// function of the slider tests.
class SliderFrameTest : public QObject
{
protected:
    void makeWindow()
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(400, 60);
        new QHBoxLayout(m_window.get());
        m_owner = std::make_unique<OwnerProbe>();
    }

    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<OwnerProbe> m_owner;
};
