// The printed call report: its lines, in slices, and a printer that fails.
#include "cdr/call_report.h"

#include "fakes/manual_platform.h"
#include "fakes/matchers.h"

namespace trunvex {
namespace {

CallRecord call(const std::string& port, const std::string& dialled) {
    CallRecord record;
    record.port = port;
    record.sim = "3";
    record.Direction = "OUT";
    record.TypeOfCall = "Voice";
    record.SimID = "8997";
    record.Dialed_CLI = dialled;
    record.OriginateTime = "03-25-09 14:07:59 We";
    return record;
}

class PrintedReport : public testing::Test {
protected:
    PrintedReport() {
        for (int row = 0; row < rows; ++row) list.add(call(std::to_string(row + 1), "05" + std::to_string(row)));
    }
    std::unique_ptr<CallReport> begin() {
        return std::make_unique<CallReport>(list, platform.paper.begin("Calls"),
                                            ReportClock{"14", "07", "59", "25-03-09"});
    }

    static constexpr int rows = 5;
    fakes::ManualPlatform platform;
    CallList list;
};

TEST_F(PrintedReport, HasTheLinesInSlices) {
    list.clear();
    list.add(call("1", ""));
    list.add(call("7", "1\x02\xE9"));
    list.add(call("12", "0541234567"));
    const auto report = begin();
    EXPECT_TRUE(report->write(2));
    EXPECT_EQ(report->written(), 2U);
    EXPECT_THAT(platform.paper.printed, IsEmpty());
    EXPECT_FALSE(report->write(2));
    ASSERT_EQ(platform.paper.printed.size(), 1U);

    const std::string rule =
        "-----------------------------------------------------------------------------------------------";
    using Line = fakes::FakePrinter::Line;
    const auto& lines = platform.paper.printed[0].lines;
    EXPECT_EQ(lines[0], (Line{"arial", 19, "Velmora Communication -PRI System "}));
    std::vector<std::string> texts;
    for (std::size_t line = 1; line < lines.size(); ++line) {
        EXPECT_EQ(lines[line].font, "arial");
        EXPECT_EQ(lines[line].points, 10);
        texts.push_back(lines[line].text);
    }
    EXPECT_THAT(texts, ElementsAre("-PRI System Time: 14:07:59 - 25-03-09", rule,
                                   "[port #]   [Sim #]   [Phone #]      [Connect Time]   [Desconnect Time]   [Date]    "
                                   "[Total Time]",
                                   rule, "1    3      OUT      Voice      8997                  ",
                                   "7    3      OUT      Voice      8997      1\\x02\\xE9            ",
                                   "12    3      OUT      Voice      8997      0541234567            "));
    EXPECT_EQ(platform.paper.aborted, 0);
}

// The heading has five lines, the list five rows; the tenth to fail is finish().
TEST_F(PrintedReport, EndsWithAnErrorAndPrintsNothingHalf) {
    for (std::size_t failing = 0; failing <= 5 + rows; ++failing) {
        platform.paper.failsAt = failing;
        EXPECT_THROW(
            {
                const auto report = begin();
                while (report->write(2)) {
                }
            },
            std::runtime_error)
            << failing;
    }
    platform.paper.failsAt = SIZE_MAX;
    begin()->write(3);
    EXPECT_THAT(platform.paper.printed, IsEmpty());
    EXPECT_EQ(platform.paper.aborted, 5 + rows + 2);
    list.clear();
    EXPECT_FALSE(begin()->write(1));
    EXPECT_EQ(platform.paper.printed.at(0).lines.size(), 5u) << "the heading";
}

}  // namespace
}  // namespace trunvex
