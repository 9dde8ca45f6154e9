#include "screens/board/chart_panel.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSaveFile>
#include <QToolButton>
#include <QVBoxLayout>

#include "monitor/rehearsal.h"
#include "screens/board/board_paint.h"
#include "screens/board/chart_view.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"

namespace trunvex {

namespace {

constexpr const char* axes = QT_TRANSLATE_NOOP("ChartPanel", "X : Sim active time , Y : Port number");
constexpr const char* pictureFilter = "Picture (*.png)|*.png";
constexpr QSizeF pictureSize(1600, 1000);
constexpr double pictureScale = 2;
constexpr int swatch = 14;

QPushButton* button(ActionField& action) {
    auto* made = new QPushButton;
    bind(action, made);
    return made;
}

QPixmap swatchOf(const QColor& colour, double ratio) {
    QPixmap pixmap(QSize(swatch, swatch) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(colour);
    QPainter painter(&pixmap);
    painter.setPen(colours().outline);
    painter.drawRect(QRectF(0.5, 0.5, swatch - 1, swatch - 1));
    return pixmap;
}

}  // namespace

ChartPanel::ChartPanel(TimeChart& chart, Rehearsal& rehearsal, const ScreenTools& tools, QWidget* parent)
    : QWidget(parent), chart_(chart), rehearsal_(rehearsal), tools_(tools), view_(new ChartView(chart, rehearsal)) {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, grid, 0, 0);
    rows->setSpacing(grid);
    rows->addLayout(buildDays());
    rows->addWidget(view_, 1);
    rows->addLayout(buildButtons());
    listen(this, chart.changed, [this] { view_->update(); });
}

QLayout* ChartPanel::buildDays() {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid / 2);
    for (auto& day : chart_.cmdDay) {
        auto* button = new QToolButton;
        button->setProperty("role", "day");
        button->setCheckable(true);
        button->setFixedWidth(34);
        button->setFocusPolicy(Qt::StrongFocus);
        bind(day, button);
        button->setText(shown(day.caption()));
        follow(button, day, [button, &day] { button->setChecked(day.marked()); });
        row->addWidget(button);
    }
    row->addSpacing(2 * grid);
    row->addWidget(roleLabel(tr(axes), "muted"));
    row->addStretch(1);
    for (int sim = 1; sim <= simsPerModule; ++sim) {
        auto& field = chart_.cmdLegend[static_cast<std::size_t>(sim - 1)];
        auto* made = button(field);
        made->setProperty("role", "small");
        made->setAccessibleName(tr("Colour of SIM %1").arg(sim));
        const auto paint = [this, made, sim] {
            made->setIcon(swatchOf(screenColour(chart_.colour(sim)), devicePixelRatioF()));
        };
        paint();
        listen(made, chart_.changed, paint);
        listen(made, field.pressed(), [this, made, sim] {
            if (made->isVisible()) chooseColour(sim);
        });
        row->addWidget(made);
    }
    return row;
}

QLayout* ChartPanel::buildButtons() {
    auto* row = new QHBoxLayout;
    row->setSpacing(grid);
    auto* rehearse = new QCheckBox;
    bind(rehearsal_.chkRehearse, rehearse);
    auto* found = new ElidedLabel;
    bind(rehearsal_.lblRehearsal, found);
    auto* work = new QLabel;
    bind(rehearsal_.lblRehearsalWork, work);
    auto* cancel = button(rehearsal_.cmdRehearsalCancel);
    follow(cancel, rehearsal_.cmdRehearsalCancel,
           [this, cancel] { cancel->setVisible(rehearsal_.cmdRehearsalCancel.enabled()); });
    row->addWidget(rehearse);
    row->addWidget(found, 1);
    row->addWidget(work);
    row->addWidget(cancel);
    auto* save = new QPushButton(tr("Save picture..."));
    save->setObjectName("cmdSaveChart");
    connect(save, &QPushButton::clicked, this, [this] { savePicture(); });
    auto* paper = new QPushButton(tr("Print..."));
    paper->setObjectName("cmdPrintChart");
    connect(paper, &QPushButton::clicked, this, [this] { print(); });
    for (auto* made : {save, paper, button(chart_.cmdASRefresh), button(chart_.cmdGetASRSimData)}) row->addWidget(made);
    return row;
}

void ChartPanel::chooseColour(int sim) {
    auto* dialog = new QColorDialog(screenColour(chart_.colour(sim)), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, this,
            [this, sim](const QColor& colour) { chart_.setColour(sim, modelColour(colour)); });
    dialog->open();
}

// Paper is white, whatever the theme.
void ChartPanel::print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    if (QPrintDialog(&printer, this).exec() != QDialog::Accepted) return;
    QPainter painter(&printer);
    const double scale = printer.pageRect(QPrinter::DevicePixel).width() / pictureSize.width();
    painter.scale(scale, scale);
    view_->draw(painter, QRectF(QPointF(), pictureSize), coloursOf(Theme::Light));
}

void ChartPanel::savePicture() {
    const auto path = tools_.platform.dialogs().saveFile("Save picture", pictureFilter, "", Dialogs::AskReplace::Dialog,
                                                         Ticket::lasting());  // what is saved is what is seen then
    if (path.empty()) return;
    QImage image((pictureSize * pictureScale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(pictureScale);
    image.fill(colours().field);
    QPainter painter(&image);
    painter.setFont(font());
    view_->draw(painter, QRectF(QPointF(), pictureSize), colours());
    painter.end();
    QSaveFile file(shown(path));
    if (!file.open(QIODevice::WriteOnly) || !image.save(&file, "PNG") || !file.commit())
        tools_.platform.dialogs().info(tr("%1 was not written: %2").arg(shown(path), file.errorString()).toStdString());
}

}  // namespace trunvex
