#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class KalHostWindow;

// The scripted walk `make demo` takes when there is no person at a display:
// select fields of several types, change one through its editor, undo it
// from the Edit menu, add a row to a list and type into it, undo those, edit
// the scene's colour list and undo that, edit its coordinate list, filter
// the tree, show a field an engine drives, edit a vertex held in a shape's
// VertexProperty, and take a screenshot after each
// step.
class DemoTour : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(DemoTour)

public:
    DemoTour(KalHostWindow* host, const QString& directory, QObject* parent = nullptr);

    // Runs the steps one event-loop turn apart; finished() tells the
    // outcome.
    void start();

signals:
    void finished(bool ok);

private:
    void step();
    bool shoot(const QString& name, const QString& what);
    void then(const QString& shot, const QString& what);
    bool changeValue();
    bool undoFromMenu();
    bool goldIsBack();
    bool plinthCornerRaised();
    bool addListRow();
    bool typeIntoListCell(int row, int column, const QString& text);
    bool filterTree(const QString& text);

    KalHostWindow* m_host;
    QString m_directory;
    int m_step = 0;
    bool m_ok = true;
};
