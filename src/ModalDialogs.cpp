#include "ModalDialogs.h"

#include <QColorDialog>
#include <QFileDialog>

namespace {

ModalDialogs::SaveFileName& saveFileName()
{
    static ModalDialogs::SaveFileName answer;
    return answer;
}

ModalDialogs::OpenFileName& openFileName()
{
    static ModalDialogs::OpenFileName answer;
    return answer;
}

ModalDialogs::Color& color()
{
    static ModalDialogs::Color answer;
    return answer;
}

} // namespace

QString ModalDialogs::getSaveFileName(QWidget* parent, const QString& caption, const QString& dir,
                                      const QString& filter)
{
    if (saveFileName())
        return saveFileName()(parent, caption, dir, filter);
    return QFileDialog::getSaveFileName(parent, caption, dir, filter);
}

QString ModalDialogs::getOpenFileName(QWidget* parent, const QString& caption, const QString& dir,
                                      const QString& filter)
{
    if (openFileName())
        return openFileName()(parent, caption, dir, filter);
    return QFileDialog::getOpenFileName(parent, caption, dir, filter);
}

QColor ModalDialogs::getColor(const QColor& initial, QWidget* parent, const QString& title)
{
    if (color())
        return color()(initial, parent, title);
    return QColorDialog::getColor(initial, parent, title);
}

void ModalDialogs::setSaveFileName(SaveFileName answer)
{
    saveFileName() = std::move(answer);
}

void ModalDialogs::setOpenFileName(OpenFileName answer)
{
    openFileName() = std::move(answer);
}

void ModalDialogs::setColor(Color answer)
{
    color() = std::move(answer);
}
