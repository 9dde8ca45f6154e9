// The list of events.
#include <fstream>

#include "fakes/console_test.h"

namespace trunvex {
namespace {

class Events : public testing::Test {
protected:
    void stand(const char* esn = "4711") {
        bench.connect();
        bench.advance(1500);  // until the log-in begins
        console.session.bringUp.sessionStands();
        bench.receive(std::string("A_ESN") + esn);
        bench.advance(3000);
    }
    // "what xcount", the standing ones with "!", in the order in which they came.
    std::vector<std::string> rows(ListTable& list) {
        bench.advance(BoardEvents::showDelayMs);
        std::vector<std::string> all;
        for (auto row = list.rowCount(); row-- > 0;)
            all.push_back(list.text(row, 1) + (list.text(row, 1).empty() ? "" : " ") + list.text(row, 4) + " x" +
                          list.text(row, 5) + (list.text(row, 7).rfind("Stands", 0) == 0 ? "!" : ""));
        return all;
    }

    ConsoleBench bench;
    Console& console = bench.console;
    BoardEvents& events = console.monitor.events;
};

TEST_F(Events, ATroubleStandsUntilItIsOverAndComesBackAsOneRow) {
    stand();
    const std::tuple<const char*, std::vector<std::string>, const char*> steps[] = {
        {"I_ALR531,26,,,", {"Port 19 SIM ABSENCE x1!"}, "1 SIM fault"},
        {"I_ALR531,26,,,", {"Port 19 SIM ABSENCE x1!"}, "1 SIM fault"},
        {"I_ALR531,40,,,", {}, ""},
        {"I_ALR531,26,,,", {"Port 19 SIM ABSENCE x2!"}, "1 SIM fault"},
        {"I_ALR111,35,,,", {"Port 19 SIM ABSENCE x2!", "Port 1 PIN CODE wrong x1!"}, "2 SIM faults"},
        {"I_ALR112,39,,,", {"Port 19 SIM ABSENCE x2!", "Port 1 SIM failure x1!"}, "2 SIM faults"},
        {"I_ALR531,40,,,", {"Port 1 SIM failure x1!"}, "1 SIM fault"},
        {"I_ALR111,1,123,,", {}, ""},
        {"I_ALR111,24,,,", {"Port 1 UNREGISTERED x1!"}, "1 Network fault"},
        {"I_ALR111,21,42501,,", {}, ""},
        {"I_ALR111,13,,,", {"Port 1 ERROR GSM x1!"}, "1 Module fault"},
        {"A_STS11,40,40,00001:00,,,,,,,1,30,x,0,5", {}, ""},
        {"A_STS11,39,,,,,,,,,1,30,x,0,5", {"Port 1 SIM failure x2!"}, "1 SIM fault"},
        {"I_ALR111,40,,,", {}, ""},
        {"I_ALR000,032,,,", {"Network: fault x1!"}, "1 Lamp fault"},
        {"I_ALR000,030,,,", {"Network: not ready x1!"}, "1 Lamp fault"},
        {"A_SYS6.1,0,1,2", {"Network: not ready x1!", "Com port: fault x1!"}, "2 Lamp faults"},
        {"A_SYS6.1,2,2,2", {}, ""},
        {"I_ALR000,101,5,16,", {}, ""},
        {"I_ALR000,777,,,", {}, ""}};
    for (const auto& [line, standing, words] : steps) {
        bench.receive(line);
        EXPECT_EQ(rows(events.lsvStanding), standing) << line;
        EXPECT_EQ(events.lblFaults.text(), words) << line;
    }
    for (const char* cause : {"16", "31", "34", "27", "1", "", "34", "0", "x", "17,"})
        bench.receive(std::string("I_ALR000,101,6,") + cause + ",");
    events.cmbEventKind.setText("Channel");
    EXPECT_THAT(rows(events.lsvEvents),
                testing::UnorderedElementsAre("Cleared with cause 27 x1", "Cleared with cause 34 x2"));
    events.cmbEventKind.setIndex(0);
    events.cmbEventPort.setIndex(19);
    EXPECT_THAT(rows(events.lsvEvents), ElementsAre("Port 19 SIM ABSENCE x2"));
    events.cmbEventPort.setIndex(0);
    events.cmbEventKind.setText("Module");
    EXPECT_THAT(rows(events.lsvEvents), ElementsAre("Port 1 ERROR GSM x1"));
}

TEST_F(Events, ALostLinkStandsUntilTheNextLogInAndAllIsKeptForItsGateway) {
    stand();
    bench.receive("I_ALR531,26,,,");
    bench.receive("I_ALR531,40,,,");
    bench.platform.peer.closes();
    EXPECT_THAT(rows(events.lsvStanding), ElementsAre("Link lost x1!"));
    EXPECT_EQ(events.lblFaults.text(), "link lost");
    bench.advance(7000);
    stand("4712");
    EXPECT_EQ(rows(events.lsvEvents).size(), 0u) << "another gateway has events of its own";
    bench.platform.peer.closes();
    bench.connect();
    bench.receive("I_ALR121,13,,,");  // no session has begun
    bench.advance(1500);
    bench.receive("I_ALR111,13,,,");  // from the next gateway, which has not said which it is
    EXPECT_THAT(rows(events.lsvStanding), ElementsAre("Port 1 ERROR GSM x1!"));
    bench.receive("A_ESN4713");
    EXPECT_THAT(rows(events.lsvEvents), ElementsAre("Port 1 ERROR GSM x1!"));
    bench.platform.peer.closes();
    stand("4712");
    EXPECT_THAT(rows(events.lsvEvents), testing::Not(testing::Contains(HasSubstr("ERROR GSM"))));
    bench.platform.peer.closes();
    stand();
    EXPECT_THAT(rows(events.lsvEvents), testing::IsSupersetOf({"Port 19 SIM ABSENCE x1", "Link lost x1"}));
    EXPECT_EQ(events.lblFaults.text(), "");
}

TEST_F(Events, ARowIsAcknowledgedOrSetAsideForATime) {
    int alerts = 0;
    events.alerted.connect([&alerts](const std::string&) { ++alerts; });
    stand();
    bench.receive("I_ALR531,26,,,");
    EXPECT_EQ(rows(events.lsvStanding).size(), 1u);
    const auto key = events.lsvStanding.row(0).key;
    events.acknowledge({key});
    EXPECT_EQ(events.lsvStanding.text(0, 7), "Stands, acknowledged");
    events.setAside({key, "no number"});
    EXPECT_EQ(events.lblFaults.text() + events.lsvEvents.text(0, 7), "Set aside");
    bench.receive("I_ALR531,40,,,");
    bench.receive("I_ALR531,26,,,");
    EXPECT_THAT(rows(events.lsvStanding), IsEmpty());
    EXPECT_EQ(alerts, 1) << "what is set aside is no news";
    bench.advance(15 * 60'000);
    EXPECT_EQ(events.lsvStanding.rowCount(), 1u) << "its time is over";
    events.refresh();
    EXPECT_EQ(events.lsvStanding.text(0, 6), "15:01");
    for (int port = 11; port < 15; ++port) bench.receive("I_ALR" + std::to_string(port) + "1,39,,,");
    EXPECT_EQ(rows(events.lsvStanding).size(), 5u);
    EXPECT_EQ(alerts, 2) << "four at once are one alert";
    bench.receive("I_ALR121,40,,,");
    bench.receive("I_ALR121,39,,,");
    bench.receive("I_ALR211,13,,,");
    bench.advance(59'000);
    EXPECT_EQ(alerts, 2);
    bench.advance(1000);
    EXPECT_EQ(alerts, 3) << "what came too soon is told when its time has come";
    bench.receive("I_ALR121,40,,,");
    bench.receive("I_ALR121,39,,,");
    bench.advance(200'000);
    EXPECT_EQ(alerts, 3) << "what comes and goes calls once";
    for (const char* line : {"I_ALR221,13,,,", "I_ALR231,13,,,", "I_ALR231,1,123,,"}) {
        bench.receive(line);
        bench.advance(1000);
    }
    bench.advance(60'000);
    EXPECT_EQ(alerts, 4) << "what is over by its turn calls nobody";
}

TEST_F(Events, WhatTheDiskDidNotTakeIsKeptLater) {
    stand();
    const auto file = bench.folder.path() / "data" / "EVT4711.mdb";
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    int told = 0;
    console.session.notices.lblNotice.changed().connect(
        [&] { told += console.session.notices.lblNotice.text().rfind("The events can't be kept", 0) == 0; });
    for (const char* line : {"I_ALR531,26,,,", "I_ALR111,13,,,"}) bench.receive(line), bench.advance(1000);
    EXPECT_EQ(told, 1);
    bench.platform.peer.closes();
    stand();
    EXPECT_EQ(rows(events.lsvEvents).size(), 3u) << "what is in memory stays";
    std::filesystem::remove(file);
    bench.receive("I_ALR121,13,,,");
    bench.advance(1000);
    bench.platform.peer.closes();
    std::ofstream(bench.folder.path() / "data" / "EVT4799.mdb") << std::string(2000, 'x');
    stand("4799");
    bench.receive("I_ALR131,13,,,");
    bench.advance(1000);
    EXPECT_EQ(told, 1) << "what can't be read is not written";
    events.chkEventSound.press();
    ConsoleBench again(bench.folder.path());
    again.connect();
    again.advance(1500);
    again.receive("A_ESN4711");
    EXPECT_EQ(again.console.monitor.events.lsvEvents.rowCount(), 4u);
    EXPECT_EQ(again.console.monitor.events.chkEventSound.value() + again.console.monitor.events.chkEventTray.value(),
              "10")
        << "as the operator chose";
}

TEST(EventList, HoldsTheLastTenThousandAndDropsNothingThatStands) {
    EventList list;
    const auto at = [](std::size_t second) { return std::chrono::local_seconds(std::chrono::seconds(second)); };
    for (std::size_t i = 0; i < EventList::mostKept + 10; ++i) {
        BoardEvent event;
        event.what = std::to_string(i);
        list.raise(event, at(i), i == 0);
    }
    EXPECT_EQ(list.all().size(), EventList::mostKept);
    EXPECT_EQ(list.all().begin()->second.what, "0");
    EXPECT_EQ(std::next(list.all().begin())->second.what, "11");
    EXPECT_TRUE(list.clear(BoardEvent::Kind::Link, 0, at(20000)));
    EXPECT_EQ(list.all().begin()->second.lastedSeconds, 20000);
}

}  // namespace
}  // namespace trunvex
