#pragma once
// Files a test writes for the host to read, and reads back after it saved.
#include <QByteArray>
#include <QFile>
#include <QString>
#include <QtTest>

inline void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

// Empty when the file cannot be read.
inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
