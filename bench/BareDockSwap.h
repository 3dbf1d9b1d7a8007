#pragma once
// The floor of every "select until the editor is shown" figure: what any
// dock pays to swap in a small prebuilt frame (a check box, a slider, a line
// edit, like the float editor's), set its text, run one event-loop pass and
// be drawn. It uses the editors' own dock, emptied, so that both figures pay
// for the same main window layout.
#include "EventLoopPass.h"

#include <QCheckBox>
#include <QDockWidget>
#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSlider>

#include <benchmark/benchmark.h>

inline void runBareDockSwap(benchmark::State& state, QDockWidget* dock)
{
    if (!dock) {
        state.SkipWithError("the Field Editor dock is missing");
        return;
    }
    auto* frame = new QFrame;
    auto* layout = new QHBoxLayout(frame);
    // Sized like an editor's frame, which keeps the dock at its minimum.
    layout->setSizeConstraint(QLayout::SetMinimumSize);
    layout->addWidget(new QCheckBox);
    layout->addWidget(new QSlider(Qt::Horizontal));
    auto* edit = new QLineEdit;
    layout->addWidget(edit);
    dock->show();
    double value = 0;
    for (auto _ : state) {
        // Out of the dock and back in with a new value, as an editor's frame
        // does when another field of its type is chosen.
        dock->setWidget(nullptr);
        frame->setParent(nullptr);
        edit->setText(QString::number(value += 0.25, 'f', 6));
        dock->setWidget(frame);
        frame->show();
        eventLoopPass();
        benchmark::DoNotOptimize(dock->grab());
    }
    dock->setWidget(nullptr);
    frame->setParent(nullptr);
    dock->hide();
    delete frame;
}
