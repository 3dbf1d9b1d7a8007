#pragma once

#include <Inventor/SbString.h>

#include <QObject>

class KalProfileSetting;

// One unit of functionality a plug-in hands to the host: a dock, a toolbar,
// an editor. The host calls createWidget() once, then activate(),
// show()/hide() while active, deactivate(), and destroyWidget() before the
// plug-in goes away. Overriders call the host's implementation first.
class KalExtension : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(KalExtension)

public:
    ~KalExtension() override;

    virtual void activate();
    virtual void deactivate();
    virtual void hide();
    virtual void createWidget() = 0;
    virtual void show();
    virtual void destroyWidget() = 0;

    // The active profile's setting for this extension, or null when the
    // active profile does not switch it on (or no profile is active).
    KalProfileSetting* getProfileSetting() const;

    SbString name;
    SbString description;
    SbString author;
    SbString version;

protected:
    KalExtension();

private:
    friend class KalPluginsManager;
    bool m_active = false;
    bool m_widgetCreated = false;
};
