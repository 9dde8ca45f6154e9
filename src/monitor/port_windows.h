#pragma once

#include <sigc++/sigc++.h>
#include <deque>

#include "fields/fields.h"
#include "model/port_address.h"

namespace trunvex {

// The message window of a port, which can't do anything yet but be there.
struct frmSMS {
    explicit frmSMS(PortAddress ofPort)
        : port(ofPort), lblPort(arrayName("lblSMSPort", ofPort.number()), "Port " + ofPort.digits()) {}
    // The window is asked for once more.
    void SMSRefresh() { raised.emit(); }

    const PortAddress port;
    LabelField lblPort;
    sigc::signal<void()> raised;
};

// The windows that the board opens for a port: at most one message window each, and one dialler for all.
class PortWindows {
public:
    void showMessages(int index) {
        const auto port = PortAddress::ofNumber(index);
        for (auto& window : openSMS)
            if (window.port == port) {
                window.SMSRefresh();
                return;
            }
        messagesOpened.emit(openSMS.emplace_back(port));
    }
    void showDialler(int index) {
        lblDiallerPort.setText("Port " + PortAddress::ofNumber(index).digits());
        diallerAsked.emit();
    }

    std::deque<frmSMS> openSMS;
    LabelField lblDiallerPort{"lblDiallerPort"};
    sigc::signal<void(frmSMS&)> messagesOpened;
    sigc::signal<void()> diallerAsked;
};

}  // namespace trunvex
