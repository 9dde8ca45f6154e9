#pragma once

#include "config/isdn_page.h"
#include "config/system_page.h"
#include "screens/kit/page_frame.h"

namespace trunvex {

class SettingsForm;

// The page "isdn".
class IsdnPageScreen : public PageFrame {
    Q_OBJECT

public:
    IsdnPageScreen(IsdnPage& page, SystemPage& system, QWidget* parent = nullptr);

private:
    SettingsForm* buildLine();
    SettingsForm* buildCalls();
    SettingsForm* buildNumber();
    SettingsForm* buildVersions(SystemPage& system);

    IsdnPage& page_;
};

}  // namespace trunvex
