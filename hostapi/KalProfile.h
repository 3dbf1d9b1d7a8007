#pragma once

#include <Inventor/SbString.h>

#include <memory>

class KalProfileSetting;

// A named choice of extensions. The profile owns its root setting, whose
// controlled extensions are the ones the profile switches on.
class KalProfile
{
public:
    explicit KalProfile(const SbString& name);
    ~KalProfile();

    SbString getName() const;
    KalProfileSetting* getSetting();

private:
    KalProfile(const KalProfile&) = delete;
    KalProfile& operator=(const KalProfile&) = delete;

    SbString m_name;
    std::unique_ptr<KalProfileSetting> m_setting;
};
