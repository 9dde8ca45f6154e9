#pragma once

#include "screens/kit/page_frame.h"

class QGroupBox;
class QWidget;

namespace trunvex {

class LabelField;
class SystemPage;

// The page "system".
class SystemPageScreen : public PageFrame {
    Q_OBJECT

public:
    SystemPageScreen(SystemPage& page, LabelField& now, LabelField& update, QWidget* parent = nullptr);

private:
    QWidget* buildClock(LabelField& now);
    QWidget* buildVersion(LabelField& update);
    QGroupBox* buildConnection();

    SystemPage& page_;
};

}  // namespace trunvex
