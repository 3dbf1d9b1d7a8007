#pragma once

#include <QValidator>

#include <cstdint>

// Accepts unsigned 32-bit decimal numbers within [bottom, top]; an empty
// text is acceptable (the cell is being cleared), a number outside the
// range is intermediate, anything else is invalid.
class QUIntValidator : public QValidator
{
    Q_OBJECT
    Q_DISABLE_COPY(QUIntValidator)

public:
    QUIntValidator(uint64_t bottom, uint64_t top, QObject* parent);

    State validate(QString& input, int& pos) const override;
    virtual void setRange(uint64_t bottom, uint64_t top);

    uint32_t getBottom() const { return bottom; }
    uint32_t getTop() const { return top; }

private:
    uint32_t bottom;
    uint32_t top;
};
