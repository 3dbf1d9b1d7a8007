#include "FxMFieldWidget.h"

#include "AccessButtonPrivate.h"
#include "DefaultFieldValues.h"
#include "EditorIcons.h"
#include "FieldText.h"
#include "FxMFColorTable.h"
#include "FxMFieldTable.h"
#include "KalFieldIgnoredCommand.h"
#include "KalFieldSetDefaultCommand.h"
#include "KalMFSwapRowsCommand.h"
#include "LayoutMetrics.h"

#include <KalServices.h>

#include <Inventor/fields/SoMField.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpacerItem>

namespace {

int metric(const char* name)
{
    return LayoutMetrics::value(QLatin1String(name));
}

QHBoxLayout* buttonPairLayout(const char* name)
{
    auto* layout = new QHBoxLayout;
    layout->setContentsMargins(QMargins() + metric("MFButtonLayoutMargin"));
    layout->setSpacing(metric("MFButtonLayoutSpacing"));
    layout->setObjectName(QLatin1String(name));
    return layout;
}

} // namespace

FxMFieldWidget::FxMFieldWidget(const char* name)
    : FxMFieldWidget(PlainTable, name)
{}

FxMFieldWidget::FxMFieldWidget(int tableKind, const char* name)
    : m_deleteIcon(EditorIcons::deleteIcon())
    , m_addIcon(EditorIcons::addIcon())
    , m_upIcon(EditorIcons::upIcon())
    , m_downIcon(EditorIcons::downIcon())
    , m_defaultIcon(EditorIcons::defaultIcon())
    , m_ignoreIcon(EditorIcons::ignoreIcon())
    , m_tableKind(tableKind)
{
    const QString objectName = QLatin1String(name ? name : "FxMFieldWidget");
    setObjectName(objectName);
    // The frame carries the editor's name too, so that the editor can be
    // found by name in the window it is shown in.
    frame->setObjectName(objectName);
    // Made now, not with the other widgets, so that a concrete editor can
    // configure its table before the editor is first shown.
    m_table = makeTable();
}

FxMFieldTable* FxMFieldWidget::makeTable()
{
    if (m_tableKind == ColorTable)
        return new FxMFColorTable(this, frame);
    return new FxMFieldTable(this, frame, "m_table");
}

FxMFieldWidget::~FxMFieldWidget() = default;

void FxMFieldWidget::setTypeLabel(const QString& typeName)
{
    if (!m_label)
        m_label = new QLabel(frame);
    if (m_label->text().isEmpty())
        m_label->setText(QStringLiteral("<p align=\"center\">") + typeName + QStringLiteral("</p>"));
}

void FxMFieldWidget::updateElementCount()
{
    SoMField* field = getField();
    if (!field || !m_labelNumElement)
        return;
    m_labelNumElement->setText(tr("<p align=\"center\">") + QString::number(field->getNum()) +
                               tr(" elements") + tr("</p>"));
}

SoMField* FxMFieldWidget::getField() const
{
    return m_field && m_field->isOfType(SoMField::getClassTypeId()) ? static_cast<SoMField*>(m_field)
                                                                    : nullptr;
}

void FxMFieldWidget::createWidget()
{
    KalFieldEditors::createWidget();
    if (m_globalLayout)
        return;

    frame->setFrameShape(QFrame::Box);
    frame->setFrameShadow(QFrame::Plain);
    frame->setLineWidth(metric("frameLineWidth"));
    const QSize buttonSize(metric("buttonWidth"), metric("buttonHeight"));

    m_globalLayout = new QGridLayout(frame);
    m_globalLayout->setContentsMargins(QMargins() + metric("MFGlobalLayoutMarging"));
    m_globalLayout->setSpacing(metric("MFGlobalLayoutSpacing"));

    if (!m_label)
        m_label = new QLabel(frame);
    m_label->setObjectName(QStringLiteral("m_label"));
    QFont font = m_label->font();
    font.setPointSize(metric("labelPointSize"));
    m_label->setFont(font);
    m_label->setFrameShape(QFrame::Box);
    m_label->setFrameShadow(QFrame::Plain);
    m_label->setLineWidth(metric("labelLineWidth"));
    m_label->setScaledContents(true);
    m_globalLayout->addWidget(m_label, 0, 0);
    m_globalLayout->addItem(new QSpacerItem(0, 4, QSizePolicy::Minimum, QSizePolicy::Minimum), 1, 0);
    m_globalLayout->addItem(new QSpacerItem(6, 0, QSizePolicy::Minimum, QSizePolicy::Minimum), 0, 1);

    m_buttonsLayout = new QHBoxLayout;
    m_buttonsLayout->setContentsMargins(QMargins() + metric("MFGlobalButtonsLayoutMargin"));
    m_buttonsLayout->setSpacing(metric("MFGlobalButtonsLayoutSpacing"));

    auto makeButton = [&](const char* objectName, const QPixmap& icon) {
        auto* button = new QPushButton(frame);
        button->setObjectName(QLatin1String(objectName));
        button->setIcon(QIcon(icon));
        button->setMaximumSize(buttonSize);
        // The table keeps the keyboard focus, so that + and - go on working
        // after a button was clicked.
        button->setFocusPolicy(Qt::NoFocus);
        return button;
    };

    // Two buttons side by side in a layout of their own, appended to the row.
    auto addPair = [&](const char* layoutName, QPushButton* first, QPushButton* second) {
        QHBoxLayout* pair = buttonPairLayout(layoutName);
        pair->addWidget(first);
        pair->addWidget(second);
        m_buttonsLayout->addLayout(pair);
        return pair;
    };

    m_addButton = makeButton("m_addButton", m_addIcon);
    m_deleteButton = makeButton("m_deleteButton", m_deleteIcon);
    m_manageButtonsLayout = addPair("m_manageButtonsLayout", m_addButton, m_deleteButton);

    m_manageAccessSpacer =
        new QSpacerItem(metric("MFManageAccessSpacerWidth"), metric("MFManageAccessSpacerHeight"),
                        QSizePolicy::Expanding, QSizePolicy::Minimum);
    m_buttonsLayout->addItem(m_manageAccessSpacer);

    m_accessBox = new AccessButtonPrivate(0, 0, 1, frame, "m_accessBox");
    m_accessBox->setMaximumSize(metric("MFAccessWidth"), metric("buttonHeight"));
    m_buttonsLayout->addWidget(m_accessBox);

    m_accessMoveSpacer =
        new QSpacerItem(metric("MFAccessMoveSpacerWidth"), metric("MFAccessMoveSpacerHeight"),
                        QSizePolicy::Expanding, QSizePolicy::Minimum);
    m_buttonsLayout->addItem(m_accessMoveSpacer);
    m_buttonsLayout->addItem(new QSpacerItem(0, 4, QSizePolicy::Minimum, QSizePolicy::Minimum));

    m_labelNumElement = new QLabel(frame);
    m_labelNumElement->setObjectName(QStringLiteral("m_labelNumElement"));
    m_buttonsLayout->addWidget(m_labelNumElement);
    updateElementCount();

    // Both pairs carry the same layout name; that is the name they have
    // always had.
    m_upButton = makeButton("m_upButton", m_upIcon);
    m_downButton = makeButton("m_downButton", m_downIcon);
    m_moveButtonsLayout = addPair("movementButtonLayout", m_upButton, m_downButton);
    m_defaultButton = makeButton("m_defaultButton", m_defaultIcon);
    m_ignoreButton = makeButton("m_ignoreButton", m_ignoreIcon);
    m_ignoreButton->setCheckable(true);
    m_fieldButtonsLayout = addPair("movementButtonLayout", m_defaultButton, m_ignoreButton);

    m_globalLayout->addLayout(m_buttonsLayout, 0, 2);
    m_globalLayout->addWidget(m_table, 2, 2);
    m_table->setMinimumHeight(metric("MFTableMinHeightWin"));

    connectTable();
    connect(m_ignoreButton, SIGNAL(released()), this, SLOT(ignoreButtonStateChanged()));
    connect(m_defaultButton, SIGNAL(clicked()), this, SLOT(setDefaultFieldValue()));

    languageChange();
}

void FxMFieldWidget::connectTable()
{
    connect(m_upButton, SIGNAL(clicked()), m_table, SLOT(swapUpRow()));
    connect(m_downButton, SIGNAL(clicked()), m_table, SLOT(swapDownRow()));
    connect(m_deleteButton, SIGNAL(clicked()), m_table, SLOT(deleteRow()));
    connect(m_addButton, SIGNAL(clicked()), m_table, SLOT(addRow()));
    connect(m_accessBox, SIGNAL(valueChanged(int)), m_table, SLOT(showTableRow(int)));
}

void FxMFieldWidget::deactivate()
{
    KalFieldEditors::deactivate();
    releaseTableRows();
}

// A hidden editor keeps no rows. Emptying a table does not give back what
// its rows took (a million rows hold some 24 MB of bookkeeping in the model
// and the header), so a table that held a long list is replaced.
void FxMFieldWidget::releaseTableRows()
{
    m_paintedCells.forget();
    if (!m_table)
        return;
    if (m_table->rowCount() <= keptRowsLimit || !m_globalLayout) {
        m_table->setNumRows(0);
        return;
    }
    FxMFieldTable* old = m_table;
    m_table = makeTable();
    m_table->copySettingsFrom(*old);
    // The layout hands back the old table's item; it is ours to delete.
    delete m_globalLayout->replaceWidget(old, m_table);
    connectTable();
    m_table->setNumRows(0);
    // The old table may be on the call stack (a key press that changed the
    // selection); it goes when control is back in the event loop.
    old->setObjectName(QString());
    old->hide();
    old->disconnect();
    old->deleteLater();
}

void FxMFieldWidget::languageChange()
{
    if (!m_addButton)
        return;
    for (QPushButton* button :
         {m_deleteButton, m_upButton, m_downButton, m_defaultButton, m_ignoreButton, m_addButton})
        button->setText(QString());
    m_deleteButton->setToolTip(tr("Delete current row"));
    m_accessBox->setToolTip(tr("Quick access to rows"));
    m_upButton->setToolTip(tr("Bring up current row"));
    m_downButton->setToolTip(tr("Bring down current row"));
    m_defaultButton->setToolTip(tr("Set to default"));
    m_ignoreButton->setToolTip(tr("Ignore this field"));
    m_addButton->setToolTip(tr("Add a row"));
}

void FxMFieldWidget::setField(SoField* field)
{
    m_paintedCells.forget();
    if (!field) {
        // The field is gone (its node was deleted) or taken away: nothing of
        // it may be read again.
        m_field = nullptr;
        if (m_table)
            m_table->setNumRows(0);
    } else if (acceptField(field)) {
        m_field = field;
    }
    KalFieldEditors::setField(field);
}

// Cell texts are not copied into the table: the delegate asks for them when
// it paints, so a new row count and a repaint of the cells whose text
// changed are all a refresh needs.
void FxMFieldWidget::updateWidget()
{
    if (!m_table || !m_refreshEnabled)
        return;
    SoMField* field = getField();
    m_table->setNumRows(field ? field->getNum() : 0);
    m_paintedCells.repaintChanged(m_table, [this](int row, int column) { return getValueText(row, column); });
    if (field && m_ignoreButton)
        m_ignoreButton->setChecked(field->isIgnored());
    updateElementCount();
}

void FxMFieldWidget::setRefreshEnabled(bool enabled)
{
    m_refreshEnabled = enabled;
}

void FxMFieldWidget::swapValues(int, int) {}

void FxMFieldWidget::prepareSingleColumn()
{
    m_table->setColumnCount(1);
    m_table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Interactive);
    m_table->setNumRows(0);
}

bool FxMFieldWidget::holdsRow(int row) const
{
    SoMField* field = getField();
    return field && row >= 0 && row < field->getNum();
}

QString FxMFieldWidget::rowText(int row) const
{
    if (!holdsRow(row))
        return QString();
    SbString text;
    getField()->get1(row, text);
    return FieldText::toText(text);
}

void FxMFieldWidget::exchangeValues(int first, int second)
{
    KalMFSwapRowsCommand::exchange(getField(), first, second);
}

void FxMFieldWidget::cellOperation(int, int) {}

void FxMFieldWidget::setValueFromText(int, int, QString) {}

void FxMFieldWidget::setValueAt(int, const void*) {}

void FxMFieldWidget::applyChanges() {}

QString FxMFieldWidget::getValueText(int, int)
{
    return QString();
}

int FxMFieldWidget::getValueAlignment()
{
    return Qt::AlignCenter;
}

bool FxMFieldWidget::acceptField(SoField*)
{
    return false;
}

void FxMFieldWidget::ignoreButtonStateChanged()
{
    SoMField* field = getField();
    if (!field || !m_ignoreButton)
        return;
    const bool checked = m_ignoreButton->isChecked();
    field->setIgnored(checked);
    KalServices::getInstance()->pushCommand(new KalFieldIgnoredCommand(field, checked));
}

// The whole list is replaced by the default list, in its text form.
void FxMFieldWidget::setDefaultFieldValue()
{
    SoMField* field = getField();
    SoField* defaultField = DefaultFieldValues::defaultFieldFor(field);
    if (!defaultField)
        return;
    SbString text;
    defaultField->get(text);
    field->set(text.getString());
    KalServices::getInstance()->pushCommand(new KalFieldSetDefaultCommand(field, defaultField));
}
