#include "CommandLine.h"

#include <QFileInfo>

namespace {

// The plug-in --plugin stands for when it is not given: the first place that
// holds one, or else the last place, which the error message then names.
QString defaultPluginPath(const QStringList& places)
{
    for (const QString& place : places) {
        if (QFileInfo::exists(place))
            return place;
    }
    return places.isEmpty() ? QString() : places.last();
}

QString pluginOptionHelp(const QStringList& places)
{
    QString help = QStringLiteral("The plug-in library to load.");
    if (!places.isEmpty())
        help += QStringLiteral(" Without it, the first of these that exists: %1.")
                    .arg(places.join(QStringLiteral(", then ")));
    return help;
}

QString applicationDescription(const QString& documentation)
{
    QString description = QStringLiteral(
        "Kalibra stand-in host: opens a scene (the built-in sample when none is given), loads the "
        "field-editing plug-in, and lets you select, edit, undo and save.");
    if (!documentation.isEmpty())
        description += QStringLiteral("\nThe manual, README.md, is in %1/.").arg(documentation);
    return description;
}

} // namespace

CommandLine::CommandLine(const QStringList& pluginPlaces, const QString& documentation)
    : plugin(QStringLiteral("plugin"), pluginOptionHelp(pluginPlaces), QStringLiteral("PATH"),
             defaultPluginPath(pluginPlaces))
    , profiles(QStringLiteral("profiles"), QStringLiteral("A JSON file of profiles (see the README)."),
               QStringLiteral("FILE"))
    , profile(QStringLiteral("profile"), QStringLiteral("The profile to start with."), QStringLiteral("NAME"))
    , select(QStringLiteral("select"),
             QStringLiteral("Select a node or field at start: Material.diffuseColor (by node name) or "
                            "/0/3.diffuseColor (by child places from the root)."),
             QStringLiteral("PATH"))
    , screenshot(QStringLiteral("screenshot"),
                 QStringLiteral("Write a PNG of the main window once it is idle."), QStringLiteral("FILE"))
    , quit(QStringLiteral("quit"), QStringLiteral("Exit after the screenshot."))
    , list(QStringLiteral("list-extensions"), QStringLiteral("Print the extensions the plug-in registers."))
    , noView(QStringLiteral("no-view"), QStringLiteral("Do without the 3D view."))
    , tour(QStringLiteral("tour"),
           QStringLiteral("Take the scripted demo tour, screenshots into DIR, then exit."),
           QStringLiteral("DIR"))
{
    parser.setApplicationDescription(applicationDescription(documentation));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("scene"), QStringLiteral("The scene file to open (.iv)."),
                                 QStringLiteral("[SCENE.iv]"));
    parser.addOptions({plugin, profiles, profile, select, screenshot, quit, list, noView, tour});
}

bool CommandLine::listsOnly() const
{
    return parser.isSet(list) && !parser.isSet(screenshot) && !parser.isSet(tour);
}

bool CommandLine::scripted() const
{
    return parser.isSet(quit) || parser.isSet(tour);
}
