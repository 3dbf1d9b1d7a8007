#include "FxPopupWidget.h"

#include "EditorIcons.h"
#include "FieldLineEdit.h"
#include "LayoutMetrics.h"
#include "NumberInput.h"

#include <QDoubleValidator>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

namespace {
int metric(const char* name)
{
    return LayoutMetrics::value(QLatin1String(name));
}
} // namespace

FxPopupWidget::FxPopupWidget(int rows, int columns, const char* name)
    : FxSFLineWidget(name ? name : "FxPopupWidget")
    , editIcon(EditorIcons::editIcon())
    , rows(rows)
    , columns(columns)
{}

FxPopupWidget::~FxPopupWidget() = default;

void FxPopupWidget::createWidget()
{
    const bool built = popupFrame != nullptr;
    FxSFLineWidget::createWidget();
    if (built)
        return;
    editButton = new QPushButton(frame);
    editButton->setObjectName(QStringLiteral("m_editButton"));
    editButton->setMaximumSize(metric("buttonWidth"), metric("buttonHeight"));
    editButton->setIcon(QIcon(editIcon));
    if (auto* outer = qobject_cast<QHBoxLayout*>(frame->layout()))
        outer->insertWidget(0, editButton);
    connect(editButton, SIGNAL(clicked()), this, SLOT(managePopFramePos()));

    // The summary only shows the field's text form.
    lineEdit->setEnabled(false);

    popupFrame = makePopupFrame(frame);
    popupLayout = static_cast<QGridLayout*>(popupFrame->layout());

    cellCount = rows * columns;
    cells.assign(size_t(std::max(cellCount, 0)), nullptr);
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < columns; ++c) {
            auto* cell = new FieldLineEdit(popupFrame);
            cell->setObjectName(QStringLiteral("m_cell"));
            popupLayout->addWidget(cell, r, c);
            cells[size_t(r * columns + c)] = cell;
            connect(cell, SIGNAL(editingFinished()), this, SLOT(setFocusLeaveEvent()));
            connect(cell, SIGNAL(returnPressed()), this, SLOT(applyChanges()));
        }
    }
}

QFrame* FxPopupWidget::makePopupFrame(QWidget* parent)
{
    auto* popup = new QFrame(parent, Qt::Popup);
    popup->setObjectName(QStringLiteral("m_popupFrame"));
    popup->setFrameStyle(QFrame::WinPanel | QFrame::Raised);
    popup->resize(metric("PopupFrameWidth"), metric("PopupFrameHeight"));
    popup->setFrameShape(QFrame::StyledPanel);
    popup->setFrameShadow(QFrame::Raised);
    auto* grid = new QGridLayout(popup);
    grid->setContentsMargins(QMargins() + metric("PopupLayoutMargin"));
    grid->setSpacing(metric("PopupLayoutSpacing"));
    grid->setObjectName(QStringLiteral("m_popupFrameLayout"));
    return popup;
}

bool FxPopupWidget::edited()
{
    for (QLineEdit* cell : cells) {
        if (cell && cell->isModified())
            return true;
    }
    return false;
}

QValidator* FxPopupWidget::makeCellValidator(int kind, QObject* parent)
{
    QValidator* validator = nullptr;
    switch (kind) {
    case 1:
        validator = new QIntValidator(-32768, 32767, parent);
        break;
    case 2:
        validator = new QIntValidator(parent);
        break;
    case 3:
        validator = new QDoubleValidator(-3.4028234663852886e38, 3.4028234663852886e38, 6, parent);
        break;
    case 4:
        validator = new QDoubleValidator(parent);
        break;
    default:
        return nullptr;
    }
    NumberInput::useFieldLocale(validator);
    return validator;
}

void FxPopupWidget::setCellValidator(int kind)
{
    if (kind < 0 || kind > 4)
        return;
    for (QLineEdit* cell : cells) {
        if (!cell)
            continue;
        cell->setValidator(makeCellValidator(kind, cell));
    }
}

void FxPopupWidget::resetCellCursors()
{
    for (QLineEdit* cell : cells) {
        if (cell)
            cell->setCursorPosition(0);
    }
}

// Opens the grid at the button's corner, moved to the other side of the
// button when it would leave the screen.
void FxPopupWidget::managePopFramePos()
{
    if (!popupFrame || !editButton)
        return;
    if (popupFrame->isVisible()) {
        popupFrame->hide();
        return;
    }
    QPoint corner = frame->mapToGlobal(editButton->geometry().bottomRight());
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QRect desktop = screen ? screen->geometry() : QRect();
    if (corner.x() > desktop.width() - popupFrame->width() - editButton->width())
        corner.rx() -= popupFrame->width() + editButton->width();
    if (corner.y() > desktop.height() - popupFrame->height() - editButton->height())
        corner.ry() -= popupFrame->height() + editButton->height();
    popupFrame->move(corner);
    updateWidget();
    popupFrame->show();
}
