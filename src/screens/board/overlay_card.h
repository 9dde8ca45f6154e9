#pragma once

#include <QFrame>

class QLabel;
class QVBoxLayout;

namespace trunvex {

// A panel that lies over the middle of its parent while it is shown. Esc presses the button that closes it.
class OverlayCard : public QFrame {
    Q_OBJECT

public:
    OverlayCard(const QString& name, QWidget* parent);
    QVBoxLayout* rows() const { return rows_; }
    void setTitle(const QString& title);
    void setOpen(bool open);

Q_SIGNALS:
    void closeAsked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void centre();

    QVBoxLayout* rows_;
    QLabel* title_;
};

}  // namespace trunvex
