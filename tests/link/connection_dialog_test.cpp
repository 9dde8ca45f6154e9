#include "link/connection_dialog.h"

#include "fakes/console_test.h"
#include "platform/durable_file.h"

namespace trunvex {
namespace {

class ConnectionDialog : public testing::Test {
protected:
    ConnectionDialog() { bench.platform.devices = {{"/dev/ttyS0", "UART"}, {"/dev/ttyUSB0", "Adapter"}}; }
    std::unique_ptr<frmConnectionSelect> open() {
        return std::make_unique<frmConnectionSelect>(bench.platform.boxes, bench.console.files.setting,
                                                     bench.console.files.data, ports);
    }
    std::string saved(const char* key) { return bench.console.files.setting.Read("IPConfig", key); }

    ConsoleBench bench;
    SerialPortMap ports{bench.platform, bench.console.files.setting};
};

TEST_F(ConnectionDialog, SharesOneFrameBetweenSerialAndModem) {
    auto dialog = open();
    dialog->cmbConSelect.setText("COM");
    EXPECT_TRUE(dialog->framCOM.visible() && dialog->cmbComNum.visible() && !dialog->txtPhone.visible());
    EXPECT_FALSE(dialog->framNET.visible());
    dialog->cmbComNum.setIndex(1);
    dialog->cmbRate.setText("9600");
    dialog->cmbConSelect.setText("MDM");
    EXPECT_TRUE(dialog->txtPhone.visible() && dialog->txtOptionalMdn.visible() && !dialog->cmbRate.visible());
    EXPECT_EQ(dialog->portNumber(), 2);
    EXPECT_EQ(dialog->rate(), "9600");
}

TEST_F(ConnectionDialog, TiesServerMasterAndUnit) {
    auto dialog = open();
    dialog->chkSERVER.setChecked(true);
    EXPECT_TRUE(dialog->chkMasterLog.checked() && !dialog->chkMasterLog.enabled() && !dialog->txtIP.enabled());
    EXPECT_TRUE(dialog->txtUnitID.enabled());
    dialog->chkSERVER.setChecked(false);
    EXPECT_TRUE(dialog->txtIP.enabled() && dialog->chkMasterLog.enabled());
    EXPECT_TRUE(dialog->txtUnitID.enabled()) << "the master log-in is still ticked";
    dialog->chkMasterLog.setChecked(false);
    EXPECT_FALSE(dialog->txtUnitID.enabled());
}

TEST_F(ConnectionDialog, StaysOpenOnABadAddress) {
    const std::pair<const char*, const char*> cases[] = {{"  ", "4001"}, {"gw", ""},      {"gw", "0"},
                                                         {"gw", "40x"},  {"gw", "65536"}, {"gw", "-1"}};
    for (const auto& [host, port] : cases) {
        auto dialog = open();
        dialog->txtIP.setText(host);
        dialog->txtPort.setText(port);
        EXPECT_FALSE(dialog->accept());
        EXPECT_EQ(bench.platform.boxes.texts().back(), *host == ' '
                                                           ? "Wrong host address, please enter a valid host address!!"
                                                           : "Wrong port number, please enter a valid port number!!");
    }
}

TEST_F(ConnectionDialog, RemembersAllButThePassword) {
    auto dialog = open();
    std::optional<FileId> written;
    for (const auto* host : {" gw1 ", "gw2", "gw1"}) {
        dialog->txtIP.setText(host);
        dialog->txtPort.setText(" 4002 ");
        dialog->txtPass.setText("hunter2");
        dialog->chkReceivingMode.setChecked(true);
        dialog->chkMasterLog.setChecked(true);
        dialog->txtUnitID.setText("unit9");
        ASSERT_TRUE(dialog->accept());
        dialog->save();
        const auto file = fileId(bench.folder.path() / "Setting.xml");
        EXPECT_EQ(file, written.value_or(*file)) << "what has not changed is not written anew";
        written = file;
    }
    EXPECT_EQ(saved("NetPort") + ports.deviceOf(1), "4002") << "and TCP looks for no serial port";
    auto again = open();
    EXPECT_EQ(again->txtIP.text(), "gw1");
    EXPECT_THAT(again->txtIP.entries(), ElementsAre("gw1", "gw2"));
    EXPECT_TRUE(again->chkMasterLog.checked() && again->chkReceivingMode.checked() && again->txtUnitID.enabled());
    EXPECT_EQ(saved("unitID") + saved("login") + saved("server") + saved("LastCon"), "unit9101");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(bench.folder.path())) {
        if (!entry.is_regular_file()) continue;
        EXPECT_THAT(contentOf(entry.path()), Not(HasSubstr("hunter2")));
    }
}

TEST_F(ConnectionDialog, KeepsTheModemsTextAlsoWhenItWasEmptied) {
    for (const auto* text : {"ATZ", ""}) {
        auto dialog = open();
        dialog->cmbConSelect.setText("MDM");
        dialog->txtOptionalMdn.setText(text);
        dialog->save();
        EXPECT_EQ(open()->txtOptionalMdn.text(), text);
        EXPECT_THAT(open()->txtOptionalMdn.entries(), ElementsAre("ATZ"));
    }
    EXPECT_THAT(open()->txtIP.entries(), IsEmpty()) << "a host that nobody entered";
}

TEST_F(ConnectionDialog, KeepsTheNumberOfADeviceThatComesAndGoes) {
    open()->cmbConSelect.setText("COM");
    bench.platform.devices = {{"/dev/ttyACM0", "New"}, {"/dev/ttyUSB0", "Adapter"}};
    auto dialog = open();
    dialog->cmbConSelect.setText("COM");
    EXPECT_THAT(dialog->cmbComNum.details(),
                ElementsAre("/dev/ttyS0 (not present)", "/dev/ttyUSB0 - Adapter", "/dev/ttyACM0 - New"));
    EXPECT_EQ(ports.deviceOf(3), "/dev/ttyACM0");
    EXPECT_EQ(ports.deviceOf(4), "");
}

}  // namespace
}  // namespace trunvex
