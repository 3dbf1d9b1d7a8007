#pragma once

#include "CoinNumberText.h"
#include "FieldRangeMap.h"
#include "FxMFLineWidget.h"
#include "FxMFieldTable.h"
#include "FxMFieldTableItemDelegate.h"

#include <Inventor/fields/SoMFDouble.h>
#include <Inventor/fields/SoMFFloat.h>
#include <Inventor/fields/SoMFInt32.h>
#include <Inventor/fields/SoMFShort.h>
#include <Inventor/fields/SoMFUInt32.h>
#include <Inventor/fields/SoMFUShort.h>

#include <QLocale>
#include <QRegularExpression>

#include <cmath>
#include <limits>

// What the numeric list editors differ in: the field class, the title and
// extension name, the table's value kind, and for real numbers where the
// span comes from and the largest value the field can store.
template <class Field>
struct MFNumberTraits;

struct MFIntegerTraits
{
    static constexpr bool isReal = false;
    static constexpr FieldRangeKind rangeKind = FieldRangeKind::Integer;
    static constexpr double largest = 0.0;
};

template <>
struct MFNumberTraits<SoMFInt32> : MFIntegerTraits
{
    static constexpr const char* typeText = "MFInt32";
    static constexpr int kind = FxMFieldTableItemDelegate::Int32Kind;
};

template <>
struct MFNumberTraits<SoMFShort> : MFIntegerTraits
{
    static constexpr const char* typeText = "MFShort";
    static constexpr int kind = FxMFieldTableItemDelegate::ShortKind;
};

template <>
struct MFNumberTraits<SoMFUInt32> : MFIntegerTraits
{
    static constexpr const char* typeText = "MFUInt32";
    static constexpr int kind = FxMFieldTableItemDelegate::UInt32Kind;
};

template <>
struct MFNumberTraits<SoMFUShort> : MFIntegerTraits
{
    static constexpr const char* typeText = "MFUShort";
    static constexpr int kind = FxMFieldTableItemDelegate::UShortKind;
};

template <>
struct MFNumberTraits<SoMFFloat>
{
    static constexpr const char* typeText = "MFFloat";
    static constexpr int kind = FxMFieldTableItemDelegate::FloatKind;
    static constexpr bool isReal = true;
    static constexpr FieldRangeKind rangeKind = FieldRangeKind::Float;
    static constexpr double largest = std::numeric_limits<float>::max();
    static double minimum(const FieldRange& range) { return range.floatMin(); }
    static double maximum(const FieldRange& range) { return range.floatMax(); }
};

template <>
struct MFNumberTraits<SoMFDouble>
{
    static constexpr const char* typeText = "MFDouble";
    static constexpr int kind = FxMFieldTableItemDelegate::DoubleKind;
    static constexpr bool isReal = true;
    static constexpr FieldRangeKind rangeKind = FieldRangeKind::Double;
    static constexpr double largest = std::numeric_limits<double>::max();
    static double minimum(const FieldRange& range) { return range.doubleMin(); }
    static double maximum(const FieldRange& range) { return range.doubleMax(); }
};

// The editor of a list of numbers of one type: a one-column table whose
// cells open the slider frame of the type. Integer lists set their value
// kind once, when the widget is built; real lists set kind and span for
// every field, since the span depends on the field's node.
template <class Field>
class FxMFNumberWidget : public FxMFLineWidget
{
    Q_DISABLE_COPY(FxMFNumberWidget)

    using Traits = MFNumberTraits<Field>;

public:
    void createWidget() override
    {
        setTypeLabel(QLatin1String(Traits::typeText));
        FxMFLineWidget::createWidget();
        if constexpr (!Traits::isReal) {
            prepareSingleColumn();
            m_table->setValueKind(Traits::kind);
        }
    }

    bool acceptField(SoField* field) override
    {
        if (!field || !field->isOfType(Field::getClassTypeId()))
            return false;
        if constexpr (Traits::isReal) {
            // Complexity, material and directional light values all take
            // the complexity row: they share the unit span.
            const FieldRange range = fieldRangeForField(buildFieldRangeMap(), field, Traits::rangeKind);
            this->range = range;
            prepareSingleColumn();
            m_table->setValueKind(Traits::kind);
            m_table->setRealRange(Traits::minimum(range), Traits::maximum(range));
            m_table->setBounded(range.isBounded());
        }
        return true;
    }

    // Real numbers are written here in Coin's own text form without Coin's
    // output stream: a repaint asks for every cell on screen.
    QString getValueText(int row, int column) override
    {
        if constexpr (Traits::isReal) {
            if (column >= 1 || !holdsRow(row))
                return QString();
            return CoinNumberText::of((*static_cast<Field*>(getField()))[row]);
        } else {
            return FxMFLineWidget::getValueText(row, column);
        }
    }

    void setValueFromText(int row, int column, QString text) override
    {
        // The row's own text (a slider released where it was pressed sends
        // it) is the value the row holds: writing it again would notify.
        if (text == getValueText(row, column))
            return;
        if constexpr (Traits::isReal) {
            // A value the field cannot write back as a number ("inf", "nan",
            // or past the type's largest) is refused like unparsable text.
            bool ok = false;
            const double value = QLocale::c().toDouble(text.trimmed(), &ok);
            if (!ok || !std::isfinite(value) || std::fabs(value) > Traits::largest)
                return;
        } else {
            // Coin reads a leading 0 as octal ("010" is 8), where the
            // validators and the cell's slider read decimal (10). A slider
            // sends an octal prefix only for a field text such as "07",
            // which Coin never writes; hexadecimal keeps its "0x".
            static const QRegularExpression leadingZeros(QStringLiteral("^(\\s*[+-]?)0+(?=\\d)"));
            text.replace(leadingZeros, QStringLiteral("\\1"));
        }
        FxMFLineWidget::setValueFromText(row, column, text);
    }

protected:
    FxMFNumberWidget(const char* name, const char* className)
        : FxMFLineWidget(name ? name : className)
    {
        handledType = Field::getClassTypeId();
        this->name = Traits::typeText;
    }
};
