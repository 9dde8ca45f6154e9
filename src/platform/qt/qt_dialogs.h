#pragma once

#include "platform/dialogs.h"

namespace trunvex {

// Message boxes over the active window. objectName "messageBox"; its buttons carry Qt's standard roles.
class QtDialogs : public Dialogs {
protected:
    Button message(const MessageBox& box) override;
    std::string openFilePath(const std::string& title, const std::string& filter) override;
    std::string saveFilePath(const std::string& title, const std::string& filter, const std::string& name,
                             AskReplace ask) override;
};

}  // namespace trunvex
