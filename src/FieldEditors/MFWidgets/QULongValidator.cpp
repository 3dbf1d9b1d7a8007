#include "QULongValidator.h"

QULongValidator::QULongValidator(uint64_t bottom, uint64_t top, QObject* parent)
    : QUIntValidator(bottom, top, parent)
{}
