#pragma once

#include <map>

class KalExtension;

// A node of a profile's settings tree: the extensions it controls, each with
// a setting of its own (a dock's setting controls the editors it may show).
// A setting owns the settings it holds.
class KalProfileSetting
{
public:
    KalProfileSetting();
    ~KalProfileSetting();

    const std::map<KalExtension*, KalProfileSetting*>& getControlledExtensions() const;

    // Takes ownership of setting (which may be null); a setting held before
    // for the same extension is deleted.
    void setControlled(KalExtension* extension, KalProfileSetting* setting);
    void removeControlled(KalExtension* extension);

private:
    KalProfileSetting(const KalProfileSetting&) = delete;
    KalProfileSetting& operator=(const KalProfileSetting&) = delete;

    std::map<KalExtension*, KalProfileSetting*> m_controlled;
};
