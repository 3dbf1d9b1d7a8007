#include "FxMFieldTableItemDelegate.h"

#include "FieldLineEdit.h"
#include "FxIntSlider.h"
#include "FxMFieldWidget.h"
#include "FxRealSlider.h"
#include "FxUIntSlider.h"
#include "QUIntValidator.h"
#include "QULongValidator.h"

#include <QDoubleValidator>
#include <QIntValidator>
#include <QLineEdit>
#include <QPainter>
#include <QTableWidget>

#include <algorithm>
#include <iterator>
#include <limits>

namespace {

// Qt's number validators "fix up" a refused text on Return by dropping what
// they take for group separators, which turns a comma-decimal "3,5" into 35.
// A refused text must stay refused.
template <class Validator>
class NoFixup : public Validator
{
public:
    using Validator::Validator;
    void fixup(QString&) const override {}
};

// Field texts are always in the C locale, whatever the user's locale: what
// a validator accepts must be what the field reads.
template <class Validator, class... Arguments>
QValidator* inCLocale(Arguments... arguments)
{
    auto* validator = new NoFixup<Validator>(arguments...);
    QLocale c = QLocale::c();
    c.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::OmitGroupSeparator);
    validator->setLocale(c);
    return validator;
}

// The largest float exactly: "3.4028235e38", the shortest text of it, is
// past it as a double, and the float cells refuse what a float cannot hold.
constexpr double kLargestFloat = double(std::numeric_limits<float>::max());

// The validator of each value kind, by kind. The signed bottoms are the
// negated maxima, not the types' minima; that is the range the list editors
// have always offered.
using ValidatorMaker = QValidator* (*)(QObject*);
const ValidatorMaker kValidators[] = {
    /* 0 no kind */ nullptr,
    /* 1 short   */ [](QObject* p) { return inCLocale<QIntValidator>(-32767, 32767, p); },
    /* 2 ushort  */ [](QObject* p) { return inCLocale<QIntValidator>(0, 65535, p); },
    /* 3 int     */ [](QObject* p) { return inCLocale<QIntValidator>(p); },
    /* 4 uint    */ [](QObject* p) -> QValidator* { return new QUIntValidator(0, 4294967295u, p); },
    /* 5 int32   */
    [](QObject* p) { return inCLocale<QIntValidator>(-2147483647, 2147483647, p); },
    /* 6 uint32  */ [](QObject* p) -> QValidator* { return new QULongValidator(0, 4294967295u, p); },
    /* 7 float   */
    [](QObject* p) { return inCLocale<QDoubleValidator>(-kLargestFloat, kLargestFloat, 6, p); },
    /* 8 double  */ [](QObject* p) { return inCLocale<QDoubleValidator>(p); },
};

const QString kDots = QStringLiteral("...");

} // namespace

FxMFieldTableItemDelegate::FxMFieldTableItemDelegate(FxMFieldWidget* fieldWidget, QObject* parent)
    : QItemDelegate(parent)
    , m_fieldWidget(fieldWidget)
{}

void FxMFieldTableItemDelegate::setIntRange(int min, int max)
{
    intMin = min;
    intMax = max;
}

void FxMFieldTableItemDelegate::setRealRange(double min, double max)
{
    realMin = min;
    realMax = max;
}

// The longest head of the text that fits before "..." is found by halving
// rather than by trying one more character at a time, so that a value of
// thousands of characters costs a few measurements, not thousands.
QString FxMFieldTableItemDelegate::elided(const QFontMetrics& metrics, const QString& text, int width)
{
    // Most values are a few characters in a wide cell: no glyph of the font
    // is wider than its widest, so such a text fits without being measured.
    // Other scripts may be drawn from a fallback font and are measured.
    // No glyph is narrower than a pixel in any font a table uses, so a text
    // longer than the width in characters cannot fit and is not measured
    // whole: a cell may show the head of a text of megabytes.
    const bool mayFit = text.size() <= std::max(width, 0);
    const auto latin1 = [&] {
        return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x100; });
    };
    if (mayFit && ((qint64(text.size()) * metrics.maxWidth() <= width && latin1()) ||
                   metrics.horizontalAdvance(text) <= width))
        return text;
    int low = 0;
    int high = std::min<int>(text.size(), std::max(width, 0) + 1);
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (metrics.horizontalAdvance(kDots + text.left(middle)) < width)
            low = middle;
        else
            high = middle - 1;
    }
    int head = std::max(low, 1);
    // Never split a surrogate pair.
    if (head < text.size() && text.at(head - 1).isHighSurrogate())
        ++head;
    return text.left(head) + kDots;
}

void FxMFieldTableItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    paintValue(painter, option, index.row(), index.column());
}

void FxMFieldTableItemDelegate::paintValue(QPainter* painter, const QStyleOptionViewItem& option, int row,
                                           int column) const
{
    painter->save();
    const bool selected = option.state & QStyle::State_Selected;
    if (selected)
        painter->fillRect(option.rect, option.palette.highlight());
    const QString text = m_fieldWidget ? m_fieldWidget->getValueText(row, column) : QString();
    if (m_fieldWidget)
        m_fieldWidget->notePainted(row, column, text);
    if (!text.isEmpty()) {
        painter->setPen(
            option.palette.color(QPalette::Normal, selected ? QPalette::HighlightedText : QPalette::Text));
        const QString shown = elided(option.fontMetrics, text, option.rect.width() - 4);
        painter->drawText(option.rect, Qt::AlignCenter, shown);
    }
    painter->restore();
}

QWidget* FxMFieldTableItemDelegate::createSlider(QWidget* parent, int row, int column,
                                                 const QString& text) const
{
    switch (valueKind) {
    case ShortKind:
    case Int32Kind: {
        auto* slider = new FxIntSlider(valueKind == ShortKind ? 3 : 1, 1, m_fieldWidget, parent, row, column);
        slider->setRange(intMin, intMax, bounded);
        slider->setValueText(text);
        return slider;
    }
    case UShortKind:
    case UInt32Kind: {
        auto* slider =
            new FxUIntSlider(valueKind == UShortKind ? 4 : 2, 1, m_fieldWidget, parent, row, column);
        slider->setRange(uint32_t(std::max(intMin, 0)), uint32_t(std::max(intMax, 0)), bounded);
        slider->setValueText(text);
        return slider;
    }
    case FloatKind: {
        // The frame edits the cell it was opened on, in single precision.
        auto* slider = new FxRealSlider(1, m_fieldWidget, parent, true, row, column);
        slider->setRange(realMin, realMax, bounded);
        slider->setValue(text.toFloat());
        return slider;
    }
    default:
        return nullptr;
    }
}

QWidget* FxMFieldTableItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                                 const QModelIndex& index) const
{
    const int row = index.row();
    const int column = index.column();
    const int columns = index.model() ? index.model()->columnCount() : 0;
    const QString text = m_fieldWidget ? m_fieldWidget->getValueText(row, column) : QString();
    if (m_fieldWidget)
        m_fieldWidget->notePainted(row, column, text);

    QWidget* editor = nullptr;
    if (column == 0 && columns == 1)
        editor = createSlider(parent, row, column, text);
    if (!editor) {
        auto* line = new FieldLineEdit(parent);
        line->setObjectName(QStringLiteral("qt_lineeditor"));
        line->setFrame(false);
        line->setText(text);
        setValidator(line);
        editor = line;
    }
    editor->setFocusPolicy(Qt::StrongFocus);
    return editor;
}

void FxMFieldTableItemDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    if (!editor || !m_fieldWidget)
        return;
    const QString text = m_fieldWidget->getValueText(index.row(), index.column());
    if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        line->setText(text);
    } else if (auto* real = qobject_cast<FxRealSlider*>(editor)) {
        real->setValue(text.toFloat());
    } else if (auto* slider = qobject_cast<FxSlider*>(editor)) {
        slider->setValueText(text);
    }
}

void FxMFieldTableItemDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                             const QModelIndex& index) const
{
    if (!editor || !model)
        return;
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (!line) {
        // A slider frame has written its value into the field as it went.
        QItemDelegate::setModelData(editor, model, index);
        return;
    }
    commitText(line, model, index, index.column());
}

// Rejected text is not written into the field, but the cell keeps showing
// it until the next repaint from the field.
void FxMFieldTableItemDelegate::commitText(QLineEdit* line, QAbstractItemModel* model,
                                           const QModelIndex& index, int column) const
{
    if (!line || !model || !line->isModified())
        return;
    QString text = line->text();
    bool write = true;
    if (const QValidator* validator = line->validator()) {
        int position = line->cursorPosition();
        write = validator->validate(text, position) == QValidator::Acceptable;
    }
    if (write && m_fieldWidget)
        m_fieldWidget->setValueFromText(index.row(), column, text);
    model->setData(index, text, Qt::DisplayRole);
}

void FxMFieldTableItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                     const QModelIndex&) const
{
    if (editor)
        editor->setGeometry(option.rect);
}

void FxMFieldTableItemDelegate::setValidator(QLineEdit* editor) const
{
    if (!editor || valueKind < 0 || valueKind >= int(std::size(kValidators)) || !kValidators[valueKind])
        return;
    editor->setValidator(kValidators[valueKind](editor));
}
