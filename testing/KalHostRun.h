#pragma once
// kalhost run as a process by the tests, as a person runs it from a shell.
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

struct KalHostRun
{
    int code = -1;
    QString out;
    QString err;

    // Runs the built kalhost with the arguments in the environment given,
    // waits up to a minute and keeps what it said. A run that did not end
    // normally keeps code -1 and what it wrote on stderr.
    static KalHostRun of(const QStringList& arguments, const QProcessEnvironment& environment)
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(KALHOST_PATH), arguments);
        KalHostRun run;
        if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit) {
            process.kill();
            run.err = QString::fromLocal8Bit(process.readAllStandardError());
            return run;
        }
        run.code = process.exitCode();
        run.out = QString::fromLocal8Bit(process.readAllStandardOutput());
        run.err = QString::fromLocal8Bit(process.readAllStandardError());
        return run;
    }
};
