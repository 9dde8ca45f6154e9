#include "screens/board/colours_screen.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "monitor/sim_status.h"
#include "screens/board/board_paint.h"
#include "screens/kit/field_binding.h"
#include "screens/kit/labels.h"
#include "screens/kit/theme.h"

namespace trunvex {

namespace {

constexpr QSize swatchSize(48, 20);

QIcon swatchIcon(const QColor& colour, double pixelRatio) {
    QPixmap pixmap(swatchSize * pixelRatio);
    pixmap.setDevicePixelRatio(pixelRatio);
    QPainter painter(&pixmap);
    painter.fillRect(QRect(QPoint(), swatchSize), colours().outline);
    painter.fillRect(QRect(QPoint(), swatchSize).adjusted(1, 1, -1, -1), colour);
    return QIcon(pixmap);
}

}  // namespace

ColoursScreen::ColoursScreen(frmSimStatus& board, QWidget* parent)
    : QDialog(parent), model_(board.colours(), [this, &board](const BoardColours& colours) {
          board.takeColours(colours);
          accept();
      }) {
    setObjectName("frmColors");
    setWindowTitle(tr("Colours of the board"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * grid, 2 * grid, 2 * grid, 2 * grid);
    layout->setSpacing(grid);
    for (auto& field : model_.lblColor) layout->addWidget(swatch(field));
    layout->addSpacing(grid);

    auto* buttons = new QDialogButtonBox;
    auto* standard = buttons->addButton(QString(), QDialogButtonBox::ResetRole);
    bind(model_.cmdDefault, standard);
    auto* save = buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    bind(model_.cmdSave, save);
    save->setDefault(true);
    auto* cancel = buttons->addButton(QDialogButtonBox::Cancel);
    cancel->setObjectName("cmdCancel");
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    save->setFocus();
}

QPushButton* ColoursScreen::swatch(LabelField& field) {
    auto* button = new QPushButton(shown(field.text()));
    button->setObjectName(shown(field.name()));
    button->setAutoDefault(false);
    button->setIconSize(swatchSize);
    button->setStyleSheet("text-align: left");
    follow(button, field, [&field, button] {
        const auto colour = screenColour(field.colour());
        button->setIcon(swatchIcon(colour, button->devicePixelRatioF()));
        button->setAccessibleDescription(colour.name());
        button->setToolTip(tr("%1: press to choose another").arg(colour.name()));
    });
    connect(button, &QPushButton::clicked, this, [this, &field] { choose(field); });
    return button;
}

void ColoursScreen::choose(LabelField& field) {
    auto* chooser = new QColorDialog(screenColour(field.colour()), this);
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setWindowTitle(shown(field.text()));
    connect(chooser, &QColorDialog::colorSelected, this,
            [&field](const QColor& colour) { field.setColour(modelColour(colour)); });
    chooser->open();
}

}  // namespace trunvex
