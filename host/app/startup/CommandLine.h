#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QStringList>

// Everything kalhost understands on its command line.
struct CommandLine
{
    // The places the plug-in is looked for in when --plugin is not given,
    // in turn; none before there is an application to ask where the
    // program is. The help names the folder of the installed documentation
    // when one is given.
    explicit CommandLine(const QStringList& pluginPlaces, const QString& documentation = QString());

    // Only the listing is wanted: nothing is shown.
    bool listsOnly() const;
    // The run goes by itself and ends by itself: no person is at the window.
    bool scripted() const;

    QCommandLineParser parser;
    QCommandLineOption plugin;
    QCommandLineOption profiles;
    QCommandLineOption profile;
    QCommandLineOption select;
    QCommandLineOption screenshot;
    QCommandLineOption quit;
    QCommandLineOption list;
    QCommandLineOption noView;
    QCommandLineOption tour;
};
