#pragma once

#include "screens/kit/page_frame.h"

namespace trunvex {

class Console;
class SettingsForm;

// The page "isdn".
class IsdnPageScreen : public PageFrame {
    Q_OBJECT

public:
    explicit IsdnPageScreen(Console& console, QWidget* parent = nullptr);

private:
    SettingsForm* buildLine();
    SettingsForm* buildCalls();
    SettingsForm* buildNumber();
    SettingsForm* buildVersions();

    Console& console_;
};

}  // namespace trunvex
