#pragma once

#include "platform/dialogs.h"

namespace trunvex {

// Message boxes over the active window. objectName "messageBox"; its buttons carry Qt's standard roles.
class QtDialogs : public Dialogs {
public:
    Button message(const MessageBox& box) override;
};

}  // namespace trunvex
