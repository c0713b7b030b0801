#include "app/widgets/instrument_captions.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "app/session_texts.h"
#include "app/widgets/chart/chart_panel.h"
#include "app/widgets/table/table_panel.h"

namespace zentab::app {

void ShowInstrumentCaptions(const Session& session, TablePanel& table, ChartPanel& chart) {
  const texts::InstrumentTexts instrument = InstrumentInUse(session);
  const bool isChosen = session.instrument != tables::Instrument::None;
  const std::string& tip = isChosen ? instrument.pickupTip : session.texts.program.selectInstrument;
  if (!tip.empty()) table.text2->setToolTip(QString::fromStdString(tip));
  // Without an instrument the field is that of the current one.
  const std::string& label = instrument.pickupLabel.empty()
                                 ? session.texts.instruments[1].pickupLabel
                                 : instrument.pickupLabel;
  if (!label.empty()) table.labelText2->setText(QString::fromStdString(label));
  if (!instrument.setGraphCaption.empty()) {
    chart.command5->setText(QString::fromStdString(instrument.setGraphCaption));
  }
  if (!instrument.setGraphTip.empty()) {
    chart.command5->setToolTip(QString::fromStdString(instrument.setGraphTip));
  }
  table.HideButtonsWithoutCaption();
  const LabelPair labels = LabelsFor(session);
  table.label3->setText(QString::fromStdString(labels.load));
  table.label2->setText(QString::fromStdString(labels.time));
}

}  // namespace zentab::app
