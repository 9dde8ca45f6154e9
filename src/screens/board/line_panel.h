#pragma once

#include <QWidget>

class QGroupBox;

namespace trunvex {

class IsdnCounters;
class SlaveVersions;

// The board's tab with the counters of the E1 line and the programs of the modules.
class LinePanel : public QWidget {
    Q_OBJECT

public:
    LinePanel(IsdnCounters& counters, SlaveVersions& versions, QWidget* parent = nullptr);

private:
    static QGroupBox* buildCounters(IsdnCounters& counters);
    static QGroupBox* buildVersions(SlaveVersions& versions);
};

}  // namespace trunvex
