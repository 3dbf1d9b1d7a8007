#pragma once

#include <KalExtension.h>

class QComboBox;
class QToolBar;

// The "Profile Selector" toolbar: a combo box listing the host's profiles;
// choosing one makes it the active profile.
class KalProfileSelectorExtension : public KalExtension
{
    Q_OBJECT
    Q_DISABLE_COPY(KalProfileSelectorExtension)

public:
    KalProfileSelectorExtension();
    ~KalProfileSelectorExtension() override;

    void activate() override;
    void deactivate() override;
    void hide() override;
    void createWidget() override;
    void show() override;
    void destroyWidget() override;

public slots:
    void s_currentIndexChanged(int index);

private:
    void fillComboBox();

    QToolBar* toolBar = nullptr;
    QComboBox* comboBox = nullptr;
};
