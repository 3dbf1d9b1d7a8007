#include "ProfileFile.h"

#include <KalEditor.h>
#include <KalExtension.h>
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalProfileSetting.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <vector>

namespace {

// Some hundred thousand profiles fit in far less.
constexpr qint64 kLargestFile = qint64(64) << 20;

bool isEditor(KalExtension* extension)
{
    return qobject_cast<KalEditor*>(extension) != nullptr;
}

// The extensions of one kind that a list names; a missing list means all.
std::vector<KalExtension*> chosen(const std::vector<KalExtension*>& all, bool editors,
                                  const QJsonValue& names, const QString& profile, QStringList* warnings)
{
    std::vector<KalExtension*> picked;
    if (names.isUndefined() || names == QJsonValue(QStringLiteral("*"))) {
        for (KalExtension* extension : all) {
            if (isEditor(extension) == editors)
                picked.push_back(extension);
        }
        return picked;
    }
    for (const QJsonValue& value : names.toArray()) {
        const QString name = value.toString();
        bool found = false;
        for (KalExtension* extension : all) {
            if (isEditor(extension) == editors && QString::fromUtf8(extension->name.getString()) == name) {
                picked.push_back(extension);
                found = true;
            }
        }
        if (!found)
            *warnings << ProfileFile::tr("Profile \"%1\": no %2 is named \"%3\".")
                             .arg(profile, editors ? ProfileFile::tr("editor") : ProfileFile::tr("extension"),
                                  name);
    }
    return picked;
}

// What a JSON value is, in the words of a message about a wrong one.
QString kindOf(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Null:
        return ProfileFile::tr("null");
    case QJsonValue::Bool:
        return ProfileFile::tr("true or false");
    case QJsonValue::Double:
        return ProfileFile::tr("a number");
    case QJsonValue::String:
        return ProfileFile::tr("the text \"%1\"").arg(value.toString());
    case QJsonValue::Array:
        return ProfileFile::tr("a list");
    case QJsonValue::Object:
        return ProfileFile::tr("an object");
    default:
        return ProfileFile::tr("nothing");
    }
}

// A list of names may be left out or be "*"; anything else in its place
// would otherwise read as an empty list and switch everything off.
void checkNames(const QJsonObject& description, const QString& key, const QString& where,
                QStringList* problems)
{
    const QJsonValue names = description.value(key);
    if (names.isUndefined() || names == QJsonValue(QStringLiteral("*")))
        return;
    if (!names.isArray()) {
        *problems << ProfileFile::tr("%1: \"%2\" should be a list of names or \"*\", not %3.")
                         .arg(where, key, kindOf(names));
        return;
    }
    const QJsonArray list = names.toArray();
    for (int i = 0; i < list.size(); ++i) {
        if (!list.at(i).isString())
            *problems << ProfileFile::tr("%1: entry %2 of \"%3\" should be a name, not %4.")
                             .arg(where)
                             .arg(i + 1)
                             .arg(key, kindOf(list.at(i)));
    }
}

// Everything wrong with the file's shape, one line each; the file is used
// only when there is nothing.
QStringList problemsOf(const QJsonObject& top)
{
    QStringList problems;
    const QJsonValue profiles = top.value(QStringLiteral("profiles"));
    if (profiles.isUndefined()) {
        problems << ProfileFile::tr("there is no \"profiles\" list.");
        return problems;
    }
    if (!profiles.isArray()) {
        problems
            << ProfileFile::tr("\"profiles\" should be a list of profiles, not %1.").arg(kindOf(profiles));
        return problems;
    }
    const QJsonValue active = top.value(QStringLiteral("active"));
    if (!active.isUndefined() && !active.isString())
        problems
            << ProfileFile::tr("\"active\" should be the name of a profile, not %1.").arg(kindOf(active));
    QSet<QString> names;
    for (const KalProfile* held : KalPluginsManager::getInstance()->getProfilesList())
        names << QString::fromUtf8(held->getName().getString());
    const QJsonArray list = profiles.toArray();
    for (int i = 0; i < list.size(); ++i) {
        QString where = ProfileFile::tr("profile %1").arg(i + 1);
        if (!list.at(i).isObject()) {
            problems << ProfileFile::tr("%1 should be an object, not %2.").arg(where, kindOf(list.at(i)));
            continue;
        }
        const QJsonObject description = list.at(i).toObject();
        const QJsonValue name = description.value(QStringLiteral("name"));
        if (name.isUndefined()) {
            problems << ProfileFile::tr("%1 has no \"name\".").arg(where);
        } else if (!name.isString() || name.toString().isEmpty()) {
            problems << ProfileFile::tr("%1 should have a name, not %2.").arg(where, kindOf(name));
        } else {
            where = ProfileFile::tr("profile %1 (\"%2\")").arg(i + 1).arg(name.toString());
            if (names.contains(name.toString()))
                problems << ProfileFile::tr("%1: there is already a profile of that name.").arg(where);
            names << name.toString();
        }
        checkNames(description, QStringLiteral("extensions"), where, &problems);
        checkNames(description, QStringLiteral("editors"), where, &problems);
    }
    return problems;
}

} // namespace

bool ProfileFile::load(const QString& path, const std::vector<KalExtension*>& all, QString* active,
                       QStringList* warnings, QString* error)
{
    // A device or a pipe would be read without end, or block the start on
    // opening; only a file that ends is read, and only so far.
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) {
        *error = tr("The profile file \"%1\" is not a regular file.").arg(path);
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = tr("Cannot open the profile file \"%1\": %2").arg(path, file.errorString());
        return false;
    }
    const QByteArray text = file.read(kLargestFile + 1);
    if (text.size() > kLargestFile) {
        *error = tr("The profile file \"%1\" is larger than %2 MiB.").arg(path).arg(kLargestFile >> 20);
        return false;
    }
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text, &parseError);
    if (document.isNull()) {
        *error = tr("The profile file \"%1\" is not valid JSON: %2 at character %3.")
                     .arg(path, parseError.errorString())
                     .arg(parseError.offset);
        return false;
    }
    if (!document.isObject()) {
        *error = tr("The profile file \"%1\" should hold an object with a \"profiles\" list.").arg(path);
        return false;
    }
    const QJsonObject top = document.object();
    const QStringList problems = problemsOf(top);
    if (!problems.isEmpty()) {
        QStringList lines;
        for (const QString& problem : problems)
            lines << tr("The profile file \"%1\": %2").arg(path, problem);
        *error = lines.join(QLatin1Char('\n'));
        return false;
    }
    QStringList unknown;
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    for (const QJsonValue& entry : top.value(QStringLiteral("profiles")).toArray()) {
        const QJsonObject description = entry.toObject();
        const QString name = description.value(QStringLiteral("name")).toString();
        const std::vector<KalExtension*> extensions =
            chosen(all, false, description.value(QStringLiteral("extensions")), name, &unknown);
        const std::vector<KalExtension*> editors =
            chosen(all, true, description.value(QStringLiteral("editors")), name, &unknown);
        auto* profile = new KalProfile(SbString(name.toUtf8().constData()));
        KalProfileSetting* root = profile->getSetting();
        for (KalExtension* editor : editors)
            root->setControlled(editor, new KalProfileSetting);
        // Every extension the profile switches on may show the chosen
        // editors; only the docks look.
        for (KalExtension* extension : extensions) {
            auto* setting = new KalProfileSetting;
            for (KalExtension* editor : editors)
                setting->setControlled(editor, new KalProfileSetting);
            root->setControlled(extension, setting);
        }
        manager->addProfile(profile);
    }
    for (const QString& warning : unknown)
        *warnings << tr("The profile file \"%1\": %2").arg(path, warning);
    *active = top.value(QStringLiteral("active")).toString();
    return true;
}
