#pragma once

#include "platform/dialogs.h"

namespace trunvex {

// Message boxes over the active window. objectName "messageBox"; its buttons carry Qt's standard roles.
class QtDialogs : public Dialogs {
public:
    Button message(const MessageBox& box) override;
    std::string openFile(const std::string& title, const std::string& filter) override;
    std::string saveFile(const std::string& title, const std::string& filter, const std::string& name,
                         AskReplace ask) override;
};

}  // namespace trunvex
