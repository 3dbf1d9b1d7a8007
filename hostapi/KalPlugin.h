#pragma once

#include <Inventor/SbString.h>

#include <vector>

class KalExtension;

// Base of every plug-in object. A plug-in library's loadPlugin() returns one;
// the host calls load(), drives the extensions the plug-in registered, calls
// unload() and finally the library's unloadPlugin(), which deletes the object.
class KalPlugin
{
public:
    KalPlugin();

    // The plug-in registers its extensions here (addExtension), then calls
    // the base load() last.
    virtual void load();
    virtual void unload();

    // Records a non-owning pointer; the plug-in keeps ownership.
    void addExtension(KalExtension* extension);

    // Registered extensions, in registration order.
    const std::vector<KalExtension*>& getExtensions() const;

    SbString name;
    SbString description;
    SbString author;
    SbString version;

protected:
    // Only the plug-in library deletes its object, through unloadPlugin().
    virtual ~KalPlugin();

private:
    std::vector<KalExtension*> m_extensions;
};
