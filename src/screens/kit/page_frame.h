#pragma once

#include <QWidget>

class QStackedWidget;
class QVBoxLayout;

namespace trunvex {

// Shows a page of the stack. The focus goes with it: left on a hidden one, it would jump to the first button of the
// tool bar.
void turnTo(QStackedWidget* stack, QWidget* page);

// What every page has: a title line, then its content.
class PageFrame : public QWidget {
    Q_OBJECT

public:
    PageFrame(const QString& name, const QString& title, QWidget* parent = nullptr);
    QVBoxLayout* content() const { return content_; }

private:
    QVBoxLayout* content_;
};

// A page that holds nothing yet and says what it is for.
class PlaceholderPage : public PageFrame {
    Q_OBJECT

public:
    PlaceholderPage(const QString& name, const QString& title, const QString& icon, const QString& purpose,
                    QWidget* parent = nullptr);
};

}  // namespace trunvex
