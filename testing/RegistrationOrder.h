#pragma once
// The extensions of the plug-in as the host sees them, in registration
// order: the member order, except that the file path editor comes sixth.
#include <QStringList>

namespace RegistrationOrder {

inline QStringList names()
{
    return {
        "Profile Selector", "Console",      "MFColor",     "MField",     "MFDouble",   "SFFilePathString",
        "MFFloat",          "MFInt32",      "MFMatrix",    "MFPlane",    "MFRotation", "MFShort",
        "MFString",         "MFUInt32",     "MFUShort",    "MFVec2f",    "MFVec2i32",  "MFVec2s",
        "MFVec3f",          "MFVec4f",      "SFBitMask",   "SFBool",     "SFBox3s",    "SFColor",
        "SFEnum",           "SFDouble",     "SFFloat",     "SFImage",    "SFInt32",    "SField",
        "SFMatrix",         "SFName",       "SFPlane",     "SFRotation", "SFShort",    "SFString",
        "SFUInt32",         "SFUShort",     "SFVec2f",     "SFVec2i32",  "SFVec2s",    "SFVec3f",
        "SFVec4f",          "Field Editor", "Node Editor",
    };
}

} // namespace RegistrationOrder
