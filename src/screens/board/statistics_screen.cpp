#include "screens/board/statistics_screen.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "monitor/monitor_tools.h"
#include "screens/board/chart_panel.h"
#include "screens/board/statistics_panel.h"

namespace trunvex {

StatisticsScreen::StatisticsScreen(MonitorTools& monitor, const ScreenTools& tools, QWidget* parent)
    : PageFrame("frmStatics", tr("Statistics"), parent) {
    auto* tabs = new QTabWidget;
    tabs->setObjectName("staticsTabs");
    tabs->setDocumentMode(true);
    tabs->addTab(new StatisticsPanel(monitor.statistics, tools, StatisticsPanel::Resets::No), tr("SIM statistics"));
    tabs->addTab(new ChartPanel(monitor.chart, monitor.rehearsal, tools), tr("Time chart"));
    content()->addWidget(tabs, 1);
}

}  // namespace trunvex
