#include "FxTablePopupWidget.h"

#include "EditorIcons.h"
#include "FxMFieldTable.h"
#include "FxPopupWidget.h"
#include "FxTablePopupLineEdit.h"
#include "LayoutMetrics.h"

#include <Inventor/fields/SoMField.h>

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>

namespace {
int metric(const char* name)
{
    return LayoutMetrics::value(QLatin1String(name));
}
} // namespace

FxTablePopupWidget::FxTablePopupWidget(int rows, int columns, const char* name)
    : FxMFieldWidget(name ? name : "FxTablePopupWidget")
    , m_popupRows(std::max(rows, 0))
    , m_popupColumns(std::max(columns, 0))
    , m_editIcon(EditorIcons::editIcon())
{}

FxTablePopupWidget::~FxTablePopupWidget() = default;

void FxTablePopupWidget::createWidget()
{
    const bool built = m_popupFrame != nullptr;
    FxMFieldWidget::createWidget();
    if (built || !m_buttonsLayout)
        return;

    m_editButton = new QPushButton(frame);
    m_editButton->setObjectName(QStringLiteral("m_editButton"));
    m_editButton->setMaximumSize(metric("buttonWidth"), metric("buttonHeight"));
    m_editButton->setIcon(QIcon(m_editIcon));
    m_editButton->setFocusPolicy(Qt::NoFocus);
    m_editButton->setEnabled(false);
    m_editButton->setToolTip(tr("Edit the current row"));
    m_buttonsLayout->insertWidget(4, m_editButton);

    m_popupFrame = FxPopupWidget::makePopupFrame(frame);
    m_popupLayout = static_cast<QGridLayout*>(m_popupFrame->layout());

    m_lineEdits.reserve(size_t(m_popupRows * m_popupColumns));
    for (int row = 0; row < m_popupRows; ++row) {
        for (int column = 0; column < m_popupColumns; ++column) {
            auto* line = new FxTablePopupLineEdit(this, row * m_popupColumns + column, m_popupFrame);
            line->setObjectName(QStringLiteral("m_popupLineEdit"));
            m_popupLayout->addWidget(line, row, column, Qt::AlignLeft);
            connect(line, SIGNAL(textChanged(const QString&)), line, SLOT(setCurrentValue(const QString&)));
            m_lineEdits.push_back(line);
        }
    }
    connect(m_editButton, SIGNAL(clicked()), this, SLOT(setEditFrame()));
    m_table->setNumRows(0);
}

void FxTablePopupWidget::setPopupValidators(int kind)
{
    for (FxTablePopupLineEdit* line : m_lineEdits)
        line->setValidator(FxPopupWidget::makeCellValidator(kind, line));
}

QStringList FxTablePopupWidget::popupTexts() const
{
    QStringList texts;
    for (const FxTablePopupLineEdit* line : m_lineEdits)
        texts << line->text();
    return texts;
}

QString FxTablePopupWidget::getComponentText(int, int)
{
    return QString();
}

// The popup edits the value the table's current row shows; with no current
// row it starts on the first.
void FxTablePopupWidget::setEditFrame()
{
    if (!m_popupFrame)
        return;
    int row = m_table->currentRow();
    if (!holdsRow(row) && holdsRow(0)) {
        row = 0;
        m_table->setCurrentCell(0, 0);
    }
    fillPopup(row);
    if (m_popupFrame->isVisible()) {
        m_popupFrame->hide();
        return;
    }
    placePopup();
    m_popupFrame->show();
    if (!m_lineEdits.empty())
        m_lineEdits.front()->setFocus(Qt::PopupFocusReason);
}

// Filling is not typing: the lines take the value's texts without writing
// them back, which would store the value once per line, half old, half new.
void FxTablePopupWidget::fillPopup(int row)
{
    for (size_t i = 0; i < m_lineEdits.size(); ++i) {
        FxTablePopupLineEdit* line = m_lineEdits[i];
        const QSignalBlocker blocker(line);
        line->setText(getComponentText(row, int(i)));
        line->setCursorPosition(0);
        line->setModified(false);
    }
}

// The popup's right edge meets the editor's top-left corner; where that is
// off the screen, it is moved just far enough to be seen whole.
void FxTablePopupWidget::placePopup()
{
    const QPoint corner = frame->mapToGlobal(QPoint(0, 0));
    QPoint position(corner.x() - m_popupFrame->width(), corner.y());
    if (const QScreen* screen = frame->screen()) {
        const QRect available = screen->availableGeometry();
        position.setX(qBound(available.left(), position.x(),
                             std::max(available.left(), available.right() + 1 - m_popupFrame->width())));
        position.setY(qBound(available.top(), position.y(),
                             std::max(available.top(), available.bottom() + 1 - m_popupFrame->height())));
    }
    m_popupFrame->move(position);
}

void FxTablePopupWidget::closePopup()
{
    if (m_popupFrame)
        m_popupFrame->hide();
}

void FxTablePopupWidget::deactivate()
{
    closePopup();
    FxMFieldWidget::deactivate();
}

// The popup edits a row of one field; it closes when that field goes or
// another takes its place.
void FxTablePopupWidget::setField(SoField* field)
{
    if (field != m_field || !field)
        closePopup();
    FxMFieldWidget::setField(field);
}

// An open popup is not refilled: it holds what the person is typing, and
// what the field read back of "1." is "1".
void FxTablePopupWidget::updateWidget()
{
    FxMFieldWidget::updateWidget();
    if (m_editButton) {
        SoMField* field = getField();
        m_editButton->setEnabled(field && field->getNum() > 0);
    }
}
