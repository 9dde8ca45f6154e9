// Documents printed into PDF files, read back by a program that knows nothing of ours.
#include "platform/qt/qt_printer.h"

#include <sys/resource.h>

#include <QPageLayout>
#include <QProcess>
#include <QRegularExpression>
#include <csignal>
#include <fstream>

#include "fakes/console_test.h"

namespace trunvex {
namespace {

using testing::ThrowsMessage;

constexpr int limitMs = 30000;

QString outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(limitMs)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

class Printing : public testing::Test {
protected:
    // The lines of each page, without those that are empty.
    std::vector<QStringList> pages() const {
        std::vector<QStringList> made;
        const auto text = outputOf("pdftotext", {"-layout", QString::fromStdString(file.string()), "-"});
        for (const auto& page : text.split('\f', Qt::SkipEmptyParts)) {
            made.emplace_back();
            for (const auto& line : page.split('\n'))
                if (!line.trimmed().isEmpty()) made.back() << line.trimmed();
        }
        return made;
    }
    std::vector<std::string> left() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            names.push_back(entry.path().filename().string());
        return names;
    }

    fakes::TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "report.pdf";
    QtPrinter printer{file};
};

TEST_F(Printing, KeepsEveryLineInOrderAndNumbersThePages) {
    constexpr int count = 300;
    const auto document = printer.begin("Calls");
    document->setFont("arial", 19);
    document->line("Heading");
    document->setFont("arial", 10);
    for (int number = 0; number < count; ++number) document->line("row fi " + std::to_string(number));
    EXPECT_THAT(left(), Not(testing::Contains("report.pdf"))) << "before it is complete";
    document->finish();
    EXPECT_THAT(left(), ElementsAre("report.pdf"));

    const auto made = pages();
    EXPECT_GE(made.size(), 5U);
    EXPECT_LE(made.size(), 7U);
    QStringList all;
    for (std::size_t page = 0; page < made.size(); ++page) {
        all += made[page].mid(0, made[page].size() - 1);
        EXPECT_EQ(made[page].last(), QString::number(page + 1));
    }
    ASSERT_EQ(all.size(), count + 1);
    for (int number = 0; number < count; ++number) ASSERT_EQ(all[number + 1], QString("row fi %1").arg(number));
    EXPECT_THAT(outputOf("pdfinfo", {QString::fromStdString(file.string())}).toStdString(),
                testing::AllOf(HasSubstr("A4"), HasSubstr("Calls")));
}

TEST_F(Printing, WrapsWithinTheMargins) {
    QString words;
    for (int number = 0; number < 100; ++number) words += QString("word%1 ").arg(number);
    const QString unbroken = "N" + QString("0123456789").repeated(60) + "E";
    const auto document = printer.begin("Calls");
    document->line(words.toStdString());
    document->line(unbroken.toStdString());
    document->line("last");
    document->finish();
    const auto lines = pages().front();
    EXPECT_EQ(lines[lines.size() - 2], "last");
    const auto from = lines.indexOf(QRegularExpression("^N.*"));
    EXPECT_GT(from, 1);
    EXPECT_EQ(lines.mid(0, from).join(' '), words.trimmed());
    EXPECT_EQ(lines.mid(from, lines.size() - 2 - from).join(""), unbroken);
    // No character beyond the room: A4 is 595 points wide, the margin 42.
    const auto boxes = outputOf("pdftotext", {"-bbox", QString::fromStdString(file.string()), "-"});
    int found = 0;
    for (auto box = QRegularExpression("xMin=\"([0-9.]+)\".*xMax=\"([0-9.]+)\"").globalMatch(boxes); box.hasNext();
         ++found) {
        const auto match = box.next();
        EXPECT_GE(match.captured(1).toDouble(), 42) << match.captured().toStdString();
        EXPECT_LE(match.captured(2).toDouble(), 553.5) << match.captured().toStdString();
    }
    EXPECT_GT(found, 100);
}

TEST_F(Printing, ShowsAnyBytesSafely) {
    const std::pair<std::string, QString> cases[] = {{"caf\xC3\xA9", "café"},
                                                     {"caf\xE9", "caf\\xE9"},
                                                     {std::string("a\0b", 3), "a\\x00b"},
                                                     {"a\nb\tc\x1B[31m", "a\\x0Ab\\x09c\\x1B[31m"},
                                                     {"right\xE2\x80\xAEleft", "right\\xE2\\x80\\xAEleft"}};
    const auto document = printer.begin("Calls");
    QStringList expected;
    for (const auto& [bytes, shown] : cases) {
        document->line(bytes);
        document->line("");
        expected << shown;
    }
    document->finish();
    EXPECT_EQ(pages().front(), expected << "1");
}

TEST_F(Printing, TellsWhereItCannotWrite) {
    QtPrinter nowhere(folder.path() / "no such folder" / "report.pdf");
    EXPECT_THAT([&] { nowhere.begin("Calls"); }, ThrowsMessage<std::runtime_error>(HasSubstr("report.pdf\" can't be")));

    // A disk that is full after 100 kB.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit little{100000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &little);
    auto document = printer.begin("Calls");
    std::string refusal;
    try {
        for (int number = 0; number < 100000; ++number) document->line("row " + std::to_string(number * 7919));
    } catch (const std::runtime_error& error) {
        refusal = error.what();
    }
    EXPECT_THROW(document->finish(), std::runtime_error);
    document.reset();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, SIG_DFL);
    EXPECT_THAT(refusal, HasSubstr("too large"));
    EXPECT_THAT(left(), IsEmpty());
}

TEST_F(Printing, AsksForAFileWhereThereIsNoPrinter) {
    qputenv("CUPS_SERVER", "/no/such/socket");  // whatever printers the developer's machine has
    fakes::ScriptedDialogs boxes;
    QtPrinter asking(boxes);
    EXPECT_EQ(asking.begin("Calls"), nullptr) << "cancelled";
    boxes.file = file.string();
    const auto document = asking.begin("Calls");
    document->line("a row");
    document->finish();
    EXPECT_EQ(pages().front(), QStringList({"a row", "1"}));
}

// A stand-in for the program that hands a file to the queue, which takes it or says why not.
TEST_F(Printing, HandsACompleteDocumentToTheQueue) {
    const auto lp = folder.path() / "lp";
    std::ofstream(lp) << "#!/bin/sh\n[ \"$2\" = refusing ] && { echo 'lp: not accepting jobs' >&2; exit 1; }\n"
                         "echo \"$1 $2 $3 $4\" > \"${0%lp}arguments\"\ncat \"$6\" > \"${0%lp}report.pdf\"\n";
    std::filesystem::permissions(lp, std::filesystem::perms::owner_all);
    const auto path = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString(folder.path().string()) + ":" + path);
    const QPageLayout paper(QPageSize(QPageSize::Letter), QPageLayout::Landscape, {40, 40, 40, 40});
    printOnQueue("office", paper, "Calls")->line("unfinished");
    EXPECT_THAT(left(), ElementsAre("lp"));
    for (const char* queue : {"office", "refusing"}) {
        const auto document = printOnQueue(queue, paper, "Calls");
        document->line("a row");
        if (queue == std::string("office"))
            document->finish();
        else
            EXPECT_THAT([&] { document->finish(); },
                        ThrowsMessage<std::runtime_error>(HasSubstr("not accepting jobs")));
    }
    qputenv("PATH", path);
    EXPECT_EQ(pages().front(), QStringList({"a row", "1"}));
    EXPECT_THAT(outputOf("pdfinfo", {QString::fromStdString(file.string())}).toStdString(), HasSubstr("792 x 612"));
    EXPECT_EQ(contentOf(folder.path() / "arguments"), "-d office -t Calls\n");
}

}  // namespace
}  // namespace trunvex
