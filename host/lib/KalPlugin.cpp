#include "KalPlugin.h"

KalPlugin::KalPlugin() = default;

KalPlugin::~KalPlugin() = default;

void KalPlugin::load() {}

void KalPlugin::unload() {}

void KalPlugin::addExtension(KalExtension* extension)
{
    if (!extension)
        return;
    // A plug-in that registers the same object twice must not get it
    // activated twice.
    for (KalExtension* known : m_extensions) {
        if (known == extension)
            return;
    }
    m_extensions.push_back(extension);
}

const std::vector<KalExtension*>& KalPlugin::getExtensions() const
{
    return m_extensions;
}
