#pragma once

#include "FxMFComponentTraits.h"
#include "FxMFieldTable.h"
#include "FxMFieldWidget.h"
#include "KalMFSetValueCommand.h"

#include <KalServices.h>
#include <SoTypedObject.h>

#include <QHeaderView>

// The editor of a list of values with components (vectors, planes,
// rotations): one row per value, one column per component. Editing a cell
// replaces that component and keeps the others, writes the value and records
// a command, made after the write as every list editor makes it.
template <class Field>
class FxMFComponentWidget : public FxMFieldWidget
{
    Q_DISABLE_COPY(FxMFComponentWidget)

protected:
    using Traits = MFComponentTraits<Field>;
    using Value = typename Traits::Value;

public:
    void createWidget() override
    {
        setTypeLabel(QLatin1String(Traits::typeText));
        FxMFieldWidget::createWidget();
        m_table->setColumnCount(Traits::columns);
        m_table->setHorizontalHeaderLabels(Traits::headers());
        for (int column = 0; column < Traits::columns; ++column)
            m_table->horizontalHeader()->setSectionResizeMode(column, QHeaderView::Interactive);
        m_table->setNumRows(0);
        m_table->setValueKind(Traits::kind);
    }

    bool acceptField(SoField* field) override { return field && field->isOfType(Field::getClassTypeId()); }

    int getValueAlignment() override { return Qt::AlignLeft; }

    QString getValueText(int row, int column) override
    {
        Field* field = typedField();
        if (!field || !holdsRow(row) || column < 0 || column >= Traits::columns)
            return QString();
        return Traits::text((*field)[row], column);
    }

    void setValueFromText(int row, int column, QString text) override
    {
        Field* field = typedField();
        if (!field || !holdsRow(row) || column < 0 || column >= Traits::columns)
            return;
        Value value = (*field)[row];
        // A cell still showing its own text was not changed: it stands for
        // the component the field holds, not for the digits it shows.
        if (text == Traits::text(value, column))
            return;
        if (!Traits::replace(value, column, text))
            return;
        writeValue(row, value);
    }

    void swapValues(int first, int second) override
    {
        Field* field = typedField();
        if (!field || !holdsRow(first) || !holdsRow(second))
            return;
        const Value a = (*field)[first];
        const Value b = (*field)[second];
        field->set1Value(first, b);
        field->set1Value(second, a);
    }

protected:
    FxMFComponentWidget(const char* name, const char* className, int tableKind = PlainTable)
        : FxMFieldWidget(tableKind, name ? name : className)
    {
        handledType = Field::getClassTypeId();
        this->name = Traits::typeText;
    }

    // The edited field, when it is of the editor's class.
    Field* typedField() const { return SoTypedObject(getField()).cast<Field>(); }

    // A value equal to the one stored is no change and records nothing.
    void writeValue(int row, const Value& value)
    {
        Field* field = typedField();
        if (!field || (*field)[row] == value)
            return;
        field->set1Value(row, value);
        SbString none;
        KalServices::getInstance()->pushCommand(new KalMFSetValueCommand(field, row, none));
    }
};
