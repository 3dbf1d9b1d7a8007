#pragma once

#include "QUIntValidator.h"

// The validator of unsigned 32-bit list values; it behaves exactly as
// QUIntValidator and keeps its own name for the table that picks it.
class QULongValidator : public QUIntValidator
{
    Q_OBJECT
    Q_DISABLE_COPY(QULongValidator)

public:
    QULongValidator(uint64_t bottom, uint64_t top, QObject* parent);
};
