#include "screens/pages/time_table_view.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

#include "config/time_table.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/field_frame.h"
#include "screens/kit/labels.h"
#include "screens/kit/settings_form.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int timeWidth = 64;
constexpr int dayWidth = 34;
constexpr int barHeight = 12;
constexpr int scaleHeight = 14;
constexpr int minutesOfDay = 24 * 60;
constexpr int scaleStep = 6;  // hours

QWidget* buildTime(TextField& field, const QString& name) {
    auto* edit = new QLineEdit;
    edit->setFixedWidth(timeWidth);
    edit->setFont(figureFont());
    edit->setPlaceholderText("HH:MM");
    bind(field, edit, nullptr);
    edit->setAccessibleName(name);
    auto* frame = new FieldFrame(edit);
    followStanding(field, frame, nullptr);
    return frame;
}

QWidget* buildDay(CheckField& field, const QString& name) {
    auto* button = new QToolButton;
    button->setProperty("role", "day");
    button->setCheckable(true);
    button->setFixedWidth(dayWidth);
    bind(field, button);
    button->setAccessibleName(name);
    follow(button, field, [&field, button] {
        setMark(button, "edited", field.standing() == InputField::Standing::Edited ? "true" : "false");
    });
    return button;
}

}  // namespace

TimeBar::TimeBar(const TimeTable& table, std::size_t row, QWidget* parent) : QWidget(parent), table_(table), row_(row) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize TimeBar::sizeHint() const { return {240, barHeight + scaleHeight}; }

void TimeBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto& roles = colours();
    const QRect track(0, 0, width() - 1, barHeight);
    painter.fillRect(track, roles.window);
    const auto x = [&](int minute) { return track.left() + track.width() * minute / minutesOfDay; };
    const auto bar = table_.bar(row_);
    if (bar.readable && bar.days != 0) {
        const auto fill = [&](int from, int to) {
            painter.fillRect(QRect(QPoint(x(from), 1), QPoint(x(to), barHeight - 1)),
                             isEnabled() ? roles.accent : roles.muted);
        };
        // The last minute belongs to the row, so that 23:59 reaches the end of the day.
        if (bar.from <= bar.to) {
            fill(bar.from, bar.to + 1);
        } else {
            fill(bar.from, minutesOfDay);
            fill(0, bar.to + 1);
        }
    }
    painter.setPen(roles.outline);
    painter.drawRect(track);
    auto font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 0.8);
    painter.setFont(font);
    for (int hour = 0; hour <= 24; hour += scaleStep) {
        painter.setPen(roles.outline);
        painter.drawLine(x(hour * 60), barHeight, x(hour * 60), barHeight + 2);
        painter.setPen(roles.muted);
        const auto flag = hour == 0 ? Qt::AlignLeft : hour == 24 ? Qt::AlignRight : Qt::AlignHCenter;
        const int centre = hour == 0 ? grid * 2 : hour == 24 ? x(minutesOfDay) - 2 * grid : x(hour * 60);
        painter.drawText(QRect(centre - 2 * grid, barHeight + 1, 4 * grid, scaleHeight),
                         static_cast<int>(flag | Qt::AlignTop), QString::number(hour));
    }
}

TimeTableView::TimeTableView(TimeTable& table, CheckField& include, QWidget* parent)
    : QGroupBox(tr("Time table"), parent), table_(table) {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(grid / 2, 0, grid / 2, 0);
    rows->setSpacing(grid / 4);
    auto* switches = new QHBoxLayout;
    auto* included = new QCheckBox;
    bind(include, included);
    included->setText({});
    included->setToolTip(tr("Include to write group"));
    included->setAccessibleName(tr("Write the time table to the group"));
    included->setVisible(include.visible());
    switches->addWidget(included);
    for (auto* field : {&table.chkTimeIntEnable, &table.chkDayOfWkEnable}) {
        auto* box = new QCheckBox;
        bind(*field, box);
        auto* frame = new FieldFrame(box);
        followStanding(*field, frame, nullptr);
        switches->addWidget(frame);
    }
    switches->addStretch(1);
    rows->addLayout(switches);
    for (std::size_t row = 0; row < timeRowCount; ++row) rows->addLayout(buildRow(row));
}

// What the row means, as a bar over the day and in words.
QLayout* TimeTableView::buildMeaning(std::size_t row) {
    auto* meaning = new ElidedLabel;
    meaning->setObjectName(QString("lblTimeRow_%1").arg(row + 1));
    auto* bar = new TimeBar(table_, row);
    bar->setAccessibleName(tr("Row %1").arg(row + 1));
    const auto refresh = [this, bar, meaning, row] {
        bar->update();
        meaning->setText(shown(table_.meaning(row)));
        bar->setAccessibleDescription(meaning->text());
    };
    refresh();
    std::vector<Field*> fields{&table_.txtTimeIntFrom[row], &table_.txtTimeIntTo[row], &table_.chkTimeIntEnable,
                               &table_.chkDayOfWkEnable};
    for (auto& day : table_.chkSIMDayOfWk[row]) fields.push_back(&day);
    for (auto* field : fields) listen(bar, field->changed(), refresh);
    auto* both = new QHBoxLayout;
    both->setContentsMargins(2 * grid, 0, 0, 0);
    both->setSpacing(2 * grid);
    both->addWidget(bar, 4);
    both->addWidget(meaning, 5, Qt::AlignTop);
    return both;
}

QLayout* TimeTableView::buildRow(std::size_t row) {
    const auto number = static_cast<int>(row) + 1;
    auto& from = table_.txtTimeIntFrom[row];
    auto& to = table_.txtTimeIntTo[row];
    auto* fields = new QHBoxLayout;
    fields->setSpacing(grid / 2);
    fields->addWidget(roleLabel(QString::number(number), "muted"));
    fields->addWidget(buildTime(from, tr("Row %1 from").arg(number)));
    fields->addWidget(roleLabel(QString(QChar(0x2013)), "muted"));
    fields->addWidget(buildTime(to, tr("Row %1 to").arg(number)));
    fields->addSpacing(grid);
    for (std::size_t day = 0; day < daysOfWeek; ++day)
        fields->addWidget(buildDay(table_.chkSIMDayOfWk[row][day], tr("Row %1, %2").arg(number).arg(dayNames[day])));
    fields->addStretch(1);
    auto* reason = roleLabel({}, "error");
    reason->setWordWrap(true);
    reason->setVisible(false);
    for (auto* field : {&from, &to})
        follow(reason, *field, [&from, &to, reason] {
            reason->setText(shown(from.problem().empty() ? to.problem() : from.problem()));
            reason->setVisible(!reason->text().isEmpty());
        });
    auto* lines = new QVBoxLayout;
    lines->setSpacing(0);
    lines->addLayout(fields);
    lines->addLayout(buildMeaning(row));
    lines->addWidget(reason);
    return lines;
}

}  // namespace trunvex
