#include "link/connection_dialog.h"

#include <algorithm>
#include <utility>

#include "link/c_spooling.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* section = "IPConfig";
constexpr const char* defaultRate = "115200";
const std::vector<std::string> rates = {"300",   "600",   "1200",  "2400",  "4800",  "9600",
                                        "14400", "19200", "38400", "57600", "115200"};

constexpr int netKind = 1;

std::string flag(const CheckField& field) { return field.checked() ? "1" : "0"; }

void selectSaved(ChoiceField& field, const std::string& saved) {
    if (!saved.empty()) field.setIndex(static_cast<int>(val(saved)));
}

}  // namespace

frmConnectionSelect::frmConnectionSelect(Dialogs& dialogs, Settings& settings, Settings& history, SerialPortMap& ports)
    : dialogs_(dialogs), settings_(settings), ports_(ports), optionalHistory_(history, "OMDM"),
      hostHistory_(history, "IPSave") {
    load();
    cmbConSelect.valueChanged().connect([this] { showKind(); });
    chkSERVER.valueChanged().connect([this] { followServer(); });
    chkMasterLog.valueChanged().connect([this] { followMaster(); });
    txtIP.valueChanged().connect([this] { lblHostError.setText(""); });
    txtPort.valueChanged().connect([this] { lblPortError.setText(""); });
    showKind();
    if (chkSERVER.checked()) followServer();
    followMaster();
}

// The machine is searched for serial ports only when one may be chosen.
void frmConnectionSelect::listPorts() {
    if (std::exchange(portsListed_, true)) return;
    std::vector<std::string> names;
    std::vector<std::string> details;
    for (const auto& entry : ports_.entries()) {
        names.push_back("COM " + std::to_string(entry.number));
        auto beside = entry.device.empty() ? std::string("no serial port found") : entry.device;
        if (!entry.details.empty()) beside += " - " + entry.details;
        if (!entry.device.empty() && !entry.present) beside += " (not present)";
        details.push_back(std::move(beside));
    }
    for (auto* combo : {&cmbComNum, &cmbMComNum}) {
        combo->setItems(names);
        combo->setDetails(details);
    }
    selectSaved(cmbComNum, settings_.Read(section, "CComNum"));
    selectSaved(cmbMComNum, settings_.Read(section, "MComNum"));
    for (auto* combo : {&cmbComNum, &cmbMComNum})
        if (combo->index() == ChoiceField::none) combo->setIndex(0);
}

void frmConnectionSelect::load() {
    for (auto* combo : {&cmbRate, &cmbMRate}) combo->setItems(rates);
    selectSaved(cmbRate, settings_.Read(section, "CBitRate"));
    selectSaved(cmbMRate, settings_.Read(section, "MBitRate"));
    for (auto* combo : {&cmbRate, &cmbMRate})
        if (combo->index() == ChoiceField::none) combo->setText(defaultRate);
    txtPhone.setText(settings_.Read(section, "MPhone"));
    txtPort.setText(settings_.readOr(section, "NetPort", std::to_string(defaultNetPort)));
    txtUnitID.setText(settings_.Read(section, "unitID"));
    chkReceivingMode.setChecked(settings_.Read(section, "RecMode") == "1");
    chkMasterLog.setChecked(settings_.Read(section, "login") == "1");
    chkSERVER.setChecked(settings_.Read(section, "server") == "1");
    optionalHistory_.load(txtOptionalMdn);
    hostHistory_.load(txtIP);
    if (txtIP.text().empty()) txtIP.setText(defaultRemoteHost);
    const auto last = settings_.Read(section, "LastCon");
    const auto kind = last.empty() ? netKind : static_cast<int>(val(last));
    cmbConSelect.setIndex(std::clamp(kind, 0, 2));
}

// The serial and the modem line share one frame, so what is chosen for the one is what the other shows first.
void frmConnectionSelect::showKind() {
    const auto before = kind_;
    kind_ = cmbConSelect.text();
    const bool modem = isModem();
    if (kind_ != "NET") listPorts();
    if (modem && before == "COM") {
        cmbMComNum.setIndex(cmbComNum.index());
        cmbMRate.setIndex(cmbRate.index());
    } else if (kind_ == "COM" && before == "MDM") {
        cmbComNum.setIndex(cmbMComNum.index());
        cmbRate.setIndex(cmbMRate.index());
    }
    framCOM.setVisible(kind_ != "NET");
    framNET.setVisible(kind_ == "NET");
    cmbComNum.setVisible(!modem);
    cmbRate.setVisible(!modem);
    cmbMComNum.setVisible(modem);
    cmbMRate.setVisible(modem);
    lblPhone.setVisible(modem);
    txtPhone.setVisible(modem);
    lblOptionslMdm.setVisible(modem);
    txtOptionalMdn.setVisible(modem);
}

void frmConnectionSelect::followServer() {
    const bool server = chkSERVER.checked();
    txtIP.setEnabled(!server);
    if (server) chkMasterLog.setChecked(true);
    // The field can't be reached now, and an empty one would keep the dialog from closing.
    if (server && trim(txtIP.text()).empty()) txtIP.setText(defaultRemoteHost);
    chkMasterLog.setEnabled(!server);
    followMaster();
}

void frmConnectionSelect::followMaster() { txtUnitID.setEnabled(chkMasterLog.checked() || chkSERVER.checked()); }

bool frmConnectionSelect::addressHolds() {
    lblHostError.setText("");
    lblPortError.setText("");
    if (trim(txtIP.text()).empty()) {
        lblHostError.setText("A host name or address");
        dialogs_.info("Wrong host address, please enter a valid host address!!");
        return false;
    }
    const auto port = val(txtPort.text());
    if (!isNumeric(txtPort.text()) || port == 0 || port < 0 || port > 65535) {
        lblPortError.setText("A number from 1 to 65535");
        dialogs_.info("Wrong port number, please enter a valid port number!!");
        return false;
    }
    return true;
}

bool frmConnectionSelect::accept() {
    if (kind_ == "NET" && !addressHolds()) return false;
    txtIP.setText(std::string(trim(txtIP.text())));
    txtPort.setText(std::string(trim(txtPort.text())));
    txtPhone.setText(std::string(trim(txtPhone.text())));
    txtPass.setText(std::string(trim(txtPass.text())));
    return true;
}

void frmConnectionSelect::cancel() { kind_ = "ERR"; }

int frmConnectionSelect::portNumber() const { return (isModem() ? cmbMComNum : cmbComNum).index() + 1; }

std::string frmConnectionSelect::rate() const { return (isModem() ? cmbMRate : cmbRate).text(); }

void frmConnectionSelect::save() {
    std::vector<Settings::Entry> rows;
    const auto keep = [&rows](const char* key, std::string value) { rows.push_back({section, key, std::move(value)}); };
    keep("RecMode", flag(chkReceivingMode));
    keep("LastCon", std::to_string(cmbConSelect.index()));
    if (kind_ == "COM") {
        keep("CBitRate", std::to_string(cmbRate.index()));
        keep("CComNum", std::to_string(cmbComNum.index()));
    } else if (kind_ == "MDM") {
        keep("MBitRate", std::to_string(cmbMRate.index()));
        keep("MComNum", std::to_string(cmbMComNum.index()));
        keep("MPhone", txtPhone.text());
        optionalHistory_.save(txtOptionalMdn);
    } else if (kind_ == "NET") {
        keep("NetPort", txtPort.text());
        keep("server", flag(chkSERVER));
        keep("login", flag(chkMasterLog));
        keep("unitID", txtUnitID.text());
        if (!chkSERVER.checked()) hostHistory_.save(txtIP);  // a server calls no host
    }
    settings_.WriteAll(rows);
}

}  // namespace trunvex
