#pragma once

#include <QStringList>
#include <QWidget>
#include <array>

#include "monitor/port_cell.h"
#include "screens/board/board_paint.h"

namespace trunvex {

class BoardFrame;

// One module of the status board, painted as a whole: portCell_1 to portCell_32. Offers the text of each field, the
// name of each picture and the state of each check as a property of the field's name.
class BoardCell : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString lblBCH READ lblBCH)
    Q_PROPERTY(bool chkSTPEnable READ chkSTPEnable)
    Q_PROPERTY(QColor shpSim READ shpSim)
    Q_PROPERTY(QString LblSIM_num READ LblSIM_num)
    Q_PROPERTY(QString lblMsg READ lblMsg)
    Q_PROPERTY(QString lblMsgNumber READ lblMsgNumber)
    Q_PROPERTY(QString lblLimit READ lblLimit)
    Q_PROPERTY(QString imgStatus READ imgStatus)
    Q_PROPERTY(QString imgStatusSim READ imgStatusSim)
    Q_PROPERTY(QString imgStatusNet READ imgStatusNet)
    Q_PROPERTY(QString imgStatusLock READ imgStatusLock)
    Q_PROPERTY(QString lblNetworkID READ lblNetworkID)
    Q_PROPERTY(QString lblNetBCCH READ lblNetBCCH)
    Q_PROPERTY(QString lblRM_HM READ lblRM_HM)
    Q_PROPERTY(QString lblStrengthDB READ lblStrengthDB)
    Q_PROPERTY(QString imgAntenna READ imgAntenna)
    Q_PROPERTY(QString imgSMS READ imgSMS)
    Q_PROPERTY(QString lblSimClick READ lblSimClick)
    Q_PROPERTY(QString lblSimLed READ lblSimLed)
    Q_PROPERTY(QString lblNetworkLed READ lblNetworkLed)
    Q_PROPERTY(QString lblNetwork READ lblNetwork)
    Q_PROPERTY(QString cmdResetLimit READ cmdResetLimit)
    Q_PROPERTY(QString cmdResetSlave READ cmdResetSlave)
    Q_PROPERTY(QString accessibleDescription READ stateInWords)

public:
    // The frame belongs to the window that the cell stands in.
    BoardCell(PortCell& cell, BoardFrame& frame, QWidget* parent);

    // The whole state, the most important first.
    QStringList stateLines() const;
    QString stateInWords() const { return stateLines().join("; "); }
    // A module that the gateway has not got, or has not told of, and that nothing was heard of.
    bool absent() const;
    void setMarked(bool marked);
    // The module's kind may be new.
    void hardwareChanged();

    QSize sizeHint() const override { return {138, 150}; }
    QSize minimumSizeHint() const override { return {96, 104}; }

Q_SIGNALS:
    // An arrow key: to the neighbour so many columns and rows away.
    void walked(int columns, int rows);
    void focused();
    // Ctrl and a click, or Ctrl+Space: to be reset with others.
    void markAsked();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    enum Text { Heading, Message, SecondLine, Number, Sim, Net, Home, NetworkId, Bcch, Decibel, Count, Reset, Texts };
    enum Icon { Enable, State, Call, SimLamp, NetLamp, Lock, Antenna, Sms, Menu, Icons };
    enum Button { EnableBox, MenuButton, ResetButton, Buttons };
    struct Sizes;

    static QString text(const LabelField& field);
    static QString text(const PictureField& field);
    static QString seen(const LabelField& field);
    QString lblBCH() const { return text(cell_.lblBCH); }
    bool chkSTPEnable() const { return cell_.chkSTPEnable.checked(); }
    QColor shpSim() const { return screenColour(cell_.shpSim.colour()); }
    QString LblSIM_num() const { return text(cell_.LblSIM_num); }
    QString lblMsg() const { return text(cell_.lblMsg); }
    QString lblMsgNumber() const { return text(cell_.lblMsgNumber); }
    QString lblLimit() const { return text(cell_.lblLimit); }
    QString imgStatus() const { return text(cell_.imgStatus); }
    QString imgStatusSim() const { return text(cell_.imgStatusSim); }
    QString imgStatusNet() const { return text(cell_.imgStatusNet); }
    QString imgStatusLock() const { return text(cell_.imgStatusLock); }
    QString lblNetworkID() const { return text(cell_.lblNetworkID); }
    QString lblNetBCCH() const { return text(cell_.lblNetBCCH); }
    QString lblRM_HM() const { return text(cell_.lblRM_HM); }
    QString lblStrengthDB() const { return text(cell_.lblStrengthDB); }
    QString imgAntenna() const { return text(cell_.imgAntenna); }
    QString imgSMS() const { return text(cell_.imgSMS); }
    QString lblSimClick() const { return text(cell_.lblSimClick); }
    QString lblSimLed() const { return text(cell_.lblSimLed); }
    QString lblNetworkLed() const { return text(cell_.lblNetworkLed); }
    QString lblNetwork() const { return text(cell_.lblNetwork); }
    QString cmdResetLimit() const;
    QString cmdResetSlave() const;

    QString meaning() const;  // of the state
    void repaintLater();
    void layOut();
    void layOutHeading(const Sizes& sizes);
    void layOutBand(const Sizes& sizes);
    void layOutLamps(const Sizes& sizes);
    void layOutNetwork(const Sizes& sizes);
    void layOutCounter(const Sizes& sizes);
    void layOutButtons(const Sizes& sizes);
    void layOutLater();
    int buttonAt(QPointF place) const;
    void press(int button);

    PortCell& cell_;
    // What follows is not as the model is any more. Until the frame ends it is painted as it was.
    bool stale_ = true;
    double pixelRatio_ = 0;
    bool faint_ = true;
    QRect band_;
    QColor bandColour_;
    std::array<TextPiece, Texts> texts_;
    std::array<IconPiece, Icons> icons_;
    std::array<QRectF, Buttons> buttons_;
    int pressed_ = Buttons;  // the button under the mouse when it went down
    bool marked_ = false;
};

}  // namespace trunvex
