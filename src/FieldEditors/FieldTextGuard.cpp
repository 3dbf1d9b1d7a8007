#include "FieldTextGuard.h"

#include <SbImageSize.h>

#include <Inventor/fields/SoMFEnum.h>
#include <Inventor/fields/SoMFName.h>
#include <Inventor/fields/SoSFEnum.h>
#include <Inventor/fields/SoSFImage.h>
#include <Inventor/fields/SoSFName.h>

#include <QRegularExpression>
#include <QStringList>

namespace {
bool isNumberCharacter(QChar c)
{
    const char latin = c.toLatin1();
    return (latin >= '0' && latin <= '9') || (latin >= 'a' && latin <= 'f') ||
           (latin >= 'A' && latin <= 'F') || latin == 'x' || latin == 'X' || latin == '.' || latin == '+' ||
           latin == '-';
}
} // namespace

bool FieldTextGuard::acceptable(const QString& text)
{
    int run = 0;
    for (QChar c : text) {
        run = isNumberCharacter(c) ? run + 1 : 0;
        if (run > maxNumberRun)
            return false;
    }
    return true;
}

bool FieldTextGuard::quotable(const QString& value)
{
    return !value.endsWith(QLatin1Char('\\'));
}

bool FieldTextGuard::imageFits(const SoField* field, const QString& text)
{
    if (!field || !field->isOfType(SoSFImage::getClassTypeId()))
        return true;
    static const QRegularExpression separators(QStringLiteral("\\s+"));
    const QStringList numbers = text.split(separators, Qt::SkipEmptyParts);
    if (numbers.size() < 2)
        return true;
    bool readWidth = false;
    bool readHeight = false;
    // Coin reads integers as C does: "0x" is hexadecimal, a leading 0 octal.
    const qlonglong width = numbers.at(0).toLongLong(&readWidth, 0);
    const qlonglong height = numbers.at(1).toLongLong(&readHeight, 0);
    if (!readWidth || !readHeight)
        return true;
    return SbImageSize::fits(width, height, numbers.size() - 3);
}

bool FieldTextGuard::namesFit(const SoField* field, const QString& text)
{
    if (!field || text.size() <= maxNameText)
        return true;
    // The bit masks derive from the enumerations.
    for (SoType type : {SoSFName::getClassTypeId(), SoMFName::getClassTypeId(), SoSFEnum::getClassTypeId(),
                        SoMFEnum::getClassTypeId()}) {
        if (field->isOfType(type))
            return false;
    }
    return true;
}
