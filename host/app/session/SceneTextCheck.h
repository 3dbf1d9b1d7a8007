#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

// What a scene file's text is checked for before Coin reads it: inputs that
// make Coin's reader overrun a fixed buffer or its stack instead of failing.
class SceneTextCheck
{
    Q_DECLARE_TR_FUNCTIONS(SceneTextCheck)

public:
    // A run of number characters longer than this is refused: Coin copies a
    // number into a fixed buffer on its stack without looking at its length.
    static constexpr int kMaxNumberLength = 256;
    // Nesting deeper than this is refused. Deep files are read on a large
    // stack (LargeStack); this keeps them within what that stack holds.
    static constexpr int kMaxDepth = 100000;
    // No header Coin knows is longer; a longer first line is text.
    static constexpr int kMaxHeaderLength = 256;

    // True for text Coin may be given. Binary files are not looked at. False
    // with the reason, naming origin and the line, otherwise.
    static bool acceptable(const QByteArray& text, const QString& origin, QString* error);

    // True where Coin reads the text as a binary file.
    static bool isBinary(const QByteArray& text);

private:
    static bool numbersFit(const QByteArray& text, const QString& origin, QString* error);
    static bool nestingFits(const QByteArray& text, const QString& origin, QString* error);
    static bool imagesFit(const QByteArray& text, const QString& origin, QString* error);
};
