#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <vector>

class KalExtension;

// Profiles a person writes down: a JSON file that names, for each profile,
// the extensions it switches on and the editors its docks may show. The
// format is described in the README. Profiles are made for the extensions
// given, so the plug-ins are loaded first.
class ProfileFile
{
    Q_DECLARE_TR_FUNCTIONS(ProfileFile)

public:
    // Adds the file's profiles to the host. False, with the reasons (one a
    // line, each naming the file), when the file cannot be read or is not
    // made as described: a value of the wrong kind, a profile without a
    // name, or two of one name. Nothing is added then, since a half-read
    // file would start the host with profiles other than the ones meant.
    // Extension and editor names it does not know are reported in *warnings
    // and skipped. *active is the profile the file asks to start with, if
    // any.
    static bool load(const QString& path, const std::vector<KalExtension*>& extensions, QString* active,
                     QStringList* warnings, QString* error);
};
