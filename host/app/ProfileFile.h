#pragma once

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
public:
    // Adds the file's profiles to the host. False, with the reason, when the
    // file cannot be used at all; names it does not know are reported in
    // *warnings and skipped. *active is the profile the file asks to start
    // with, if any.
    static bool load(const QString& path, const std::vector<KalExtension*>& extensions, QString* active,
                     QStringList* warnings, QString* error);
};
