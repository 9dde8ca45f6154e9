#pragma once

#include <QGroupBox>

namespace trunvex {

class CheckField;
class TimeTable;

// One row of a time table as a bar over the 24 hours; live while the row is typed.
class TimeBar : public QWidget {
    Q_OBJECT

public:
    TimeBar(const TimeTable& table, std::size_t row, QWidget* parent = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const TimeTable& table_;
    std::size_t row_;
};

// The four rows of a SIM's time table: times, days, the bar, and in words what each row means.
class TimeTableView : public QGroupBox {
    Q_OBJECT

public:
    TimeTableView(TimeTable& table, CheckField& include, QWidget* parent = nullptr);

private:
    QLayout* buildRow(std::size_t row);
    QLayout* buildMeaning(std::size_t row);

    TimeTable& table_;
};

}  // namespace trunvex
