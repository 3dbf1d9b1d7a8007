#include "ProfileFile.h"

#include <KalEditor.h>
#include <KalExtension.h>
#include <KalPluginsManager.h>
#include <KalProfile.h>
#include <KalProfileSetting.h>

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <vector>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("ProfileFile", text);
}

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
            *warnings << tr("Profile \"%1\": no %2 is named \"%3\".")
                             .arg(profile, editors ? tr("editor") : tr("extension"), name);
    }
    return picked;
}

} // namespace

bool ProfileFile::load(const QString& path, const std::vector<KalExtension*>& all, QString* active,
                       QStringList* warnings, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = tr("Cannot open the profile file \"%1\": %2").arg(path, file.errorString());
        return false;
    }
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parseError);
    if (document.isNull()) {
        *error = tr("The profile file \"%1\" is not valid JSON: %2 at character %3.")
                     .arg(path, parseError.errorString())
                     .arg(parseError.offset);
        return false;
    }
    const QJsonObject top = document.object();
    if (!top.value(QStringLiteral("profiles")).isArray()) {
        *error = tr("The profile file \"%1\" has no \"profiles\" list.").arg(path);
        return false;
    }
    KalPluginsManager* manager = KalPluginsManager::getInstance();
    for (const QJsonValue& entry : top.value(QStringLiteral("profiles")).toArray()) {
        const QJsonObject description = entry.toObject();
        const QString name = description.value(QStringLiteral("name")).toString();
        if (name.isEmpty()) {
            *warnings << tr("A profile without a name was skipped.");
            continue;
        }
        const std::vector<KalExtension*> extensions =
            chosen(all, false, description.value(QStringLiteral("extensions")), name, warnings);
        const std::vector<KalExtension*> editors =
            chosen(all, true, description.value(QStringLiteral("editors")), name, warnings);
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
    *active = top.value(QStringLiteral("active")).toString();
    return true;
}
