#pragma once

#include "KalProfileSetting.h"

#include <Inventor/SbString.h>

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
    // Held in place: a profile file of tens of thousands of profiles makes
    // and frees one block a profile fewer.
    KalProfileSetting m_setting;
};
