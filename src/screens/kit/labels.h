#pragma once

#include <QIcon>
#include <QLabel>

namespace trunvex {

// A label for one icon, painted at the screen's own resolution and in the colours in force.
class IconLabel : public QLabel {
public:
    explicit IconLabel(int sizePixels, QWidget* parent = nullptr);
    void setIcon(const QIcon& icon);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon icon_;
};

// One line of plain text, cut at the right with an ellipsis when the room is short; the whole text is then in
// the tip.
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent = nullptr);
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

// The state of the session as a small sign: its shape tells as much as its colour. The phase is the session's
// tag.
class StateSign : public QWidget {
public:
    explicit StateSign(QWidget* parent = nullptr);
    void setPhase(const QString& phase);
    const QString& phase() const { return phase_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString phase_;
};

// A caption before a field.
QLabel* captionLabel(const QString& text, QWidget* parent = nullptr);
// Plain text in one of the style sheet's roles: "title", "muted", "small", "error", "strong".
QLabel* roleLabel(const QString& text, const char* role, QWidget* parent = nullptr);

}  // namespace trunvex
