#pragma once

#include <QColor>
#include <QString>

#include <functional>

class QWidget;

// The one way the plug-in opens a modal dialog. By default each operation
// runs the real Qt dialog; a test replaces it with a function that answers
// at once, so that saving, choosing a file or a colour needs no person.
class ModalDialogs
{
public:
    using SaveFileName = std::function<QString(QWidget* parent, const QString& caption, const QString& dir,
                                               const QString& filter)>;
    using OpenFileName = SaveFileName;
    using Color = std::function<QColor(const QColor& initial, QWidget* parent, const QString& title)>;

    static QString getSaveFileName(QWidget* parent, const QString& caption, const QString& dir,
                                   const QString& filter);
    static QString getOpenFileName(QWidget* parent, const QString& caption, const QString& dir,
                                   const QString& filter);
    static QColor getColor(const QColor& initial, QWidget* parent, const QString& title);

    // An empty function restores the real dialog.
    static void setSaveFileName(SaveFileName answer);
    static void setOpenFileName(OpenFileName answer);
    static void setColor(Color answer);
};
