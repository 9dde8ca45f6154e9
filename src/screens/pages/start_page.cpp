#include "screens/pages/start_page.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "fields/fields.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/icons.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr int stepIcon = 32;

struct Step {
    const char* icon;
    const char* head;
    const char* text;
};

constexpr std::array<Step, 3> steps = {{
    {"connect", QT_TRANSLATE_NOOP("StartPage", "Press Connect"),
     QT_TRANSLATE_NOOP("StartPage", "In the tool bar, or Ctrl+1. Nothing is asked of a gateway before you do.")},
    {"tsl", QT_TRANSLATE_NOOP("StartPage", "Choose the way to the gateway"),
     QT_TRANSLATE_NOOP("StartPage", "A serial line, TCP or a modem. Enter the gateway's password.")},
    {"server0", QT_TRANSLATE_NOOP("StartPage", "No gateway at hand?"),
     QT_TRANSLATE_NOOP("StartPage",
                       "Try the simulated one: ./run starts it with a console; or start trunvex-gateway and\n"
                       "connect by TCP to 127.0.0.1, port 4001.")},
}};

}  // namespace

StartPage::StartPage(ActionField& connectButton, QWidget* parent)
    : PageFrame("page_start", tr("No gateway connected"), parent) {
    auto* card = new QFrame;
    card->setProperty("role", "card");
    auto* form = new QGridLayout(card);
    form->setContentsMargins(4 * grid, 3 * grid, 4 * grid, 3 * grid);
    form->setHorizontalSpacing(3 * grid);
    form->setVerticalSpacing(grid / 4);
    form->setColumnStretch(1, 1);
    int row = 0;
    for (const auto& step : steps) {
        auto* icon = new IconLabel(stepIcon);
        icon->setIcon(lineIcon(step.icon, &ColourRoles::accent));
        form->addWidget(icon, row, 0, 2, 1, Qt::AlignTop);
        form->addWidget(roleLabel(tr(step.head), "strong"), row, 1);
        form->addWidget(captionLabel(tr(step.text)), row + 1, 1);
        form->setRowMinimumHeight(row + 2, 2 * grid);
        row += 3;
    }
    auto* connectNow = new QPushButton;
    bind(connectButton, connectNow);
    connectNow->setObjectName("cmdStartConnect");
    form->addWidget(connectNow, row, 1, Qt::AlignLeft);
    setFocusProxy(connectNow);
    content()->addStretch(2);
    content()->addWidget(card, 0, Qt::AlignHCenter);
    content()->addStretch(3);
}

}  // namespace trunvex
