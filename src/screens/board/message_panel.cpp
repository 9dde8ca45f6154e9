#include "screens/board/message_panel.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "monitor/sim_statistics.h"
#include "screens/kit/field_binding.h"

namespace trunvex {

MessagePanel::MessagePanel(SimStatistics& statistics, QWidget* board)
    : OverlayCard(shown(statistics.framMSG.name()), board) {
    auto* text = new QLabel;
    text->setObjectName(shown(statistics.lblMSG_BOX.name()));
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* close = new QPushButton;
    bind(statistics.cmdMSG_BOX, close);
    rows()->addWidget(text);
    rows()->addWidget(close, 0, Qt::AlignRight);
    const auto refresh = [this, text, &statistics] {
        setTitle(shown(statistics.framMSG.text()));
        text->setText(shown(statistics.lblMSG_BOX.text()).remove('\r').trimmed());
        text->setAccessibleName(text->text());
        setOpen(statistics.framMSG.visible());
    };
    follow(this, statistics.framMSG, refresh);
    listen(this, statistics.lblMSG_BOX.changed(), refresh);
    connect(this, &OverlayCard::closeAsked, this, [&statistics] { statistics.cmdMSG_BOX.press(); });
}

}  // namespace trunvex
