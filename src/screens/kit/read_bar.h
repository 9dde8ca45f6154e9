#pragma once

#include <QFrame>
#include <functional>

class QLabel;
class QProgressBar;

namespace trunvex {

class CoolProgressBar;
class Field;
class ReadQueue;

// The bar of a batch of reads: a small card in the middle of its parent, there while the bar is visible. Its parts are
// named after the bar: prgLoading, prgLoading_text, prgLoading_percent, prgLoadingCard.
class ReadBar : public QFrame {
    Q_OBJECT

public:
    struct Cancel {
        QString name;
        QString spoken;
        std::function<void()> press;
    };
    // How the card follows its bar: calls `refresh` now and after changes, for as long as `owner` lives.
    using Follow = std::function<void(QObject* owner, Field& bar, std::function<void()> refresh)>;

    ReadBar(CoolProgressBar& bar, Cancel cancel, const Follow& follow, QWidget* parent);
    // The bar of the pages' reads, at each of its changes.
    ReadBar(ReadQueue& reads, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();
    void centre();

    CoolProgressBar& progress_;
    QLabel* text_;
    QLabel* percent_;
    QProgressBar* bar_;
};

}  // namespace trunvex
