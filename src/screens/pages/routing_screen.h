#pragma once

#include "config/routing/routing_page.h"
#include "screens/kit/page_frame.h"

class QTabWidget;
class QVBoxLayout;

namespace trunvex {

// The page "tsl": a tab for each part of it, and one to try a number.
class RoutingScreen : public PageFrame {
    Q_OBJECT

public:
    explicit RoutingScreen(RoutingPage& page, QWidget* parent = nullptr);

private:
    QWidget* buildPorts();
    QWidget* buildPortRows();
    QWidget* buildPairs();
    QWidget* buildModifications();
    QWidget* buildChannels();
    QWidget* buildChannelRows();
    QWidget* buildPrefixes();
    QWidget* buildAccess();
    QWidget* buildDirectLines();
    QWidget* buildTrial();
    QWidget* pickWord();
    QVBoxLayout* portButtons();

    RoutingPage& page_;
};

}  // namespace trunvex
