#include "platform/qt/qt_printer.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStringDecoder>
#include <QTemporaryFile>
#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>

#include "platform/dialogs.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr double leastMarginMm = 15;
constexpr double numberGapMm = 3;  // between the lines and the page's number
constexpr double footMm = 7;       // for that gap and the number
constexpr const char* firstFamily = "arial";
constexpr int firstPoints = 10;
constexpr int numberPoints = 8;
constexpr double continuedIndent = 2;  // of a line's rest, in widths of "0"
constexpr int queueMs = 30000;

[[noreturn]] void fail(const QString& what, const QString& reason) {
    throw std::runtime_error((what + ": " + reason).toStdString());
}

bool printable(const QString& text) {
    const auto characters = text.toUcs4();
    return std::all_of(characters.begin(), characters.end(), [](char32_t c) { return QChar::isPrint(c); });
}

QString lineOf(std::string_view text) {
    const auto plain = [](char c) { return c >= 0x20 && c < 0x7F; };
    if (std::all_of(text.begin(), text.end(), plain))
        return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = utf8(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    return !utf8.hasError() && printable(decoded) ? decoded : QString::fromStdString(escaped(text));
}

// A font on paper, with the widths of its characters looked up once. Each glyph is as wide as its character: without
// kerning and ligatures a line's width is the sum.
class PaperFont {
public:
    PaperFont(const QString& family, int points, QPaintDevice* paper) : font_(family, points), metrics_(font_) {
        font_.setKerning(false);
        font_.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferOutline | QFont::PreferNoShaping));
        metrics_ = QFontMetricsF(font_, paper);
        for (std::size_t c = 0; c < widths_.size(); ++c)
            widths_[c] = metrics_.horizontalAdvance(QChar(static_cast<char16_t>(c)));
    }

    const QFont& font() const { return font_; }
    double ascent() const { return metrics_.ascent(); }
    double lineHeight() const { return metrics_.lineSpacing(); }
    double width(QStringView text) const {
        double sum = 0;
        for (const QChar c : text) sum += width(c);
        return sum;
    }

    // How many characters of the text go into the room, one at least. It ends behind a blank where there is one, and
    // further blanks may stand over the edge.
    qsizetype fitting(QStringView text, double room) const {
        qsizetype end = 0;
        qsizetype blank = 0;
        for (double used = 0; end < text.size(); ++end) {
            used += width(text[end]);
            if (text[end] == ' ') blank = end + 1;
            if (used > room && text[end] != ' ') break;
        }
        if (end == text.size()) return end;
        if (blank > 0) return blank;
        if (text[end].isLowSurrogate() && end > 1) --end;
        return std::max<qsizetype>(end, text[0].isHighSurrogate() ? 2 : 1);
    }

private:
    double width(QChar c) const {
        return c.unicode() < widths_.size() ? widths_[c.unicode()] : metrics_.horizontalAdvance(c);
    }

    QFont font_;
    QFontMetricsF metrics_;
    std::array<double, 128> widths_;
};

// The room for the lines on the paper, and where its number begins below them.
struct Sheet {
    QRectF lines;
    double foot;
};

// A printer that can't reach the edge has margins of its own; the wider one counts.
Sheet sheetOf(const QPageLayout& paper, int resolution) {
    const double dotsPerMm = resolution / 25.4;
    const double margin = leastMarginMm * dotsPerMm;
    const double foot = footMm * dotsPerMm;
    const auto lines = QRectF(paper.fullRectPixels(resolution))
                           .adjusted(margin, margin, -margin, -margin)
                           .intersected(QRectF(paper.paintRectPixels(resolution)).adjusted(0, 0, 0, -foot));
    return {lines, lines.bottom() + numberGapMm * dotsPerMm};
}

// Where a document goes to when it is complete. Until then it is a file that nobody sees.
class Destination {
public:
    virtual ~Destination() = default;
    virtual QFileDevice& file() = 0;
    virtual void deliver(const QString& title) = 0;
    // What is still written to the file is for nobody.
    virtual void abandon() {}
    // A write that was cut short has no reason yet; the next one, of the rest, has.
    [[noreturn]] void refuse() {
        if (file().isOpen()) file().flush();
        fail(fault_, file().errorString());
    }

protected:
    explicit Destination(QString fault) : fault_(std::move(fault)) {}

private:
    QString fault_;
};

// The file has its name when it is complete; until then what had that name stays.
class PdfFile : public Destination {
public:
    explicit PdfFile(const QString& path)
        : Destination(QObject::tr("The file \"%1\" can't be written").arg(path)), file_(path) {
        if (!file_.open(QIODevice::WriteOnly)) refuse();
    }
    QFileDevice& file() override { return file_; }
    void deliver(const QString&) override {
        if (!file_.commit()) refuse();
    }
    void abandon() override { file_.cancelWriting(); }

private:
    QSaveFile file_;
};

// QPrinter is not used for the pages: it sends what is there when it is destroyed, and keeps to itself that the queue
// refused it.
class PrinterQueue : public Destination {
public:
    explicit PrinterQueue(QString name)
        : Destination(QObject::tr("The document can't be kept in the temporary folder")), name_(std::move(name)) {
        if (!file_.open()) refuse();
    }
    QFileDevice& file() override { return file_; }
    void deliver(const QString& title) override {
        if (!file_.flush()) refuse();
        const auto refused = QObject::tr("The printer \"%1\" did not take the document").arg(name_);
        QProcess lp;
        lp.start("lp", {"-d", name_, "-t", title, "--", file_.fileName()});
        if (!lp.waitForStarted()) fail(refused, QObject::tr("the program \"lp\" of CUPS is missing"));
        if (!lp.waitForFinished(queueMs)) fail(refused, lp.errorString());
        if (lp.exitStatus() != QProcess::NormalExit || lp.exitCode() != 0)
            fail(refused, QString::fromLocal8Bit(lp.readAllStandardError()).simplified());
    }

private:
    QTemporaryFile file_;
    QString name_;
};

// Pages of lines in the form of PDF. A page is written as soon as it is full, so a long document takes no more memory
// than a short one.
class PagedDocument : public PrintDocument {
public:
    PagedDocument(std::unique_ptr<Destination> destination, QPageLayout paper, const std::string& title)
        : destination_(std::move(destination)), writer_(&destination_->file()),
          sheet_(sheetOf(paper, writer_.resolution())), y_(sheet_.lines.top()) {
        writer_.setTitle(QString::fromStdString(title));
        // From the corner of the paper, wherever the printer's margins are.
        paper.setMode(QPageLayout::FullPageMode);
        writer_.setPageLayout(paper);
        if (!painter_.begin(&writer_)) destination_->refuse();
        number_.emplace(firstFamily, numberPoints, &writer_);
        PagedDocument::setFont(firstFamily, firstPoints);
    }

    ~PagedDocument() override {
        if (!finished_) destination_->abandon();
    }

    void setFont(const std::string& family, int points) override {
        font_.emplace(QString::fromStdString(family), points, &writer_);
        painter_.setFont(font_->font());
    }

    void line(std::string_view text) override {
        const auto whole = lineOf(text);
        QStringView rest(whole);
        double indent = 0;
        do {
            const auto count = font_->fitting(rest, sheet_.lines.width() - indent);
            draw(rest.first(count), indent);
            rest = rest.sliced(count);
            indent = continuedIndent * font_->width(u"0");
        } while (!rest.isEmpty());
    }

    void finish() override {
        numberPage();
        painter_.end();
        check();
        destination_->deliver(writer_.title());
        finished_ = true;
    }

private:
    void draw(QStringView text, double indent) {
        if (y_ + font_->lineHeight() > sheet_.lines.bottom() && y_ > sheet_.lines.top()) turnPage();
        if (!text.isEmpty())
            painter_.drawText(QPointF(sheet_.lines.left() + indent, y_ + font_->ascent()), text.toString());
        y_ += font_->lineHeight();
    }

    void turnPage() {
        numberPage();
        if (!writer_.newPage()) destination_->refuse();
        check();
        y_ = sheet_.lines.top();
    }

    void numberPage() {
        const auto text = QString::number(++page_);
        painter_.setFont(number_->font());
        painter_.drawText(
            QPointF(sheet_.lines.center().x() - number_->width(text) / 2, sheet_.foot + number_->ascent()), text);
        painter_.setFont(font_->font());
    }

    void check() {
        if (destination_->file().error() != QFileDevice::NoError) destination_->refuse();
    }

    std::unique_ptr<Destination> destination_;
    QPdfWriter writer_;
    QPainter painter_;  // ends before the writer and the file go
    Sheet sheet_;
    std::optional<PaperFont> font_;
    std::optional<PaperFont> number_;
    double y_;
    int page_ = 0;
    bool finished_ = false;
};

std::unique_ptr<PrintDocument> printIntoFile(const std::string& path, const std::string& title) {
    const QPageLayout a4(QPageSize(QPageSize::A4), QPageLayout::Portrait, {});
    return std::make_unique<PagedDocument>(std::make_unique<PdfFile>(QString::fromStdString(path)), a4, title);
}

QPrinterInfo printerOfMachine() {
    const auto usual = QPrinterInfo::defaultPrinter();
    if (!usual.isNull()) return usual;
    const auto all = QPrinterInfo::availablePrinters();
    return all.size() == 1 ? all.front() : QPrinterInfo();
}

}  // namespace

std::unique_ptr<PrintDocument> printOnQueue(const QString& queue, const QPageLayout& paper, const std::string& title) {
    return std::make_unique<PagedDocument>(std::make_unique<PrinterQueue>(queue), paper, title);
}

std::unique_ptr<PrintDocument> QtPrinter::begin(const std::string& title) {
    if (!dialogs_) return printIntoFile(file_.string(), title);
    if (const auto printer = printerOfMachine(); !printer.isNull())
        return printOnQueue(printer.printerName(), QPrinter(printer, QPrinter::HighResolution).pageLayout(), title);
    const auto file = dialogs_->saveFile("Print into a PDF file", "PDF file (*.pdf)|*.pdf",
                                         fileNamePart(title) + ".pdf", Dialogs::AskReplace::Dialog,
                                         Ticket::lasting());  // who prints looks again at what is to be printed
    return file.empty() ? nullptr : printIntoFile(file, title);
}

}  // namespace trunvex
