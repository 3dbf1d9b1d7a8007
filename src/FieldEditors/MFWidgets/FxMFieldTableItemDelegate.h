#pragma once

#include <QItemDelegate>

class FxMFieldWidget;
class QLineEdit;

// Paints and edits the cells of a list editor's table. The table holds no
// values: every text is asked of the editor when a cell is painted or an
// editor is opened, and an edited text goes back to the editor, which writes
// it into the field. A refresh of a list of a million values therefore costs
// only the cells on screen.
class FxMFieldTableItemDelegate : public QItemDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY(FxMFieldTableItemDelegate)

public:
    // What the values of a table are, and so how a cell is edited.
    enum ValueKind
    {
        NoKind = 0,
        ShortKind = 1,
        UShortKind = 2,
        IntKind = 3,
        UIntKind = 4,
        Int32Kind = 5,
        UInt32Kind = 6,
        FloatKind = 7,
        DoubleKind = 8,
    };

    FxMFieldTableItemDelegate(FxMFieldWidget* fieldWidget, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    // Installs the validator of the value kind; kind 0 installs none.
    virtual void setValidator(QLineEdit* editor) const;

    void setValueKind(int kind) { valueKind = kind; }
    void setIntRange(int min, int max);
    void setRealRange(double min, double max);
    void setBounded(bool on) { bounded = on; }

    int getValueKind() const { return valueKind; }
    int intMinimum() const { return intMin; }
    int intMaximum() const { return intMax; }
    double realMinimum() const { return realMin; }
    double realMaximum() const { return realMax; }
    bool isBounded() const { return bounded; }

    // What a cell of `width` pixels shows of `text`: the text when it fits,
    // else its longest head that fits before "...", never less than one
    // character.
    static QString elided(const QFontMetrics& metrics, const QString& text, int width);

protected:
    // Paints, in the cell of `option`, the text of the value cell (row,
    // column) of the editor: a table may show its values in other columns
    // than the editor counts them in.
    void paintValue(QPainter* painter, const QStyleOptionViewItem& option, int row, int column) const;
    // Hands an edited text to the editor as the value of (row, column) when
    // the editor's validator takes it, and keeps it in the cell at `index`.
    void commitText(QLineEdit* line, QAbstractItemModel* model, const QModelIndex& index, int column) const;

    FxMFieldWidget* fieldWidget() const { return m_fieldWidget; }

private:
    QWidget* createSlider(QWidget* parent, int row, int column, const QString& text) const;

    FxMFieldWidget* m_fieldWidget;
    int valueKind = NoKind;
    int intMax = 10;
    int intMin = 0;
    double realMax = 10.0;
    double realMin = 0.0;
    bool bounded = false;
};
