#include "app/widgets/table/table_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace zentab::app {
namespace {

template <typename Control>
Control* Named(Control* control, const char* name, const QString& tip = {}) {
  control->setObjectName(QLatin1String(name));
  control->setToolTip(tip);
  return control;
}

constexpr int kHeadSpace = 3;

// Told from what is around it by its heading and by space, without a frame.
class HeadedGroup : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent*) override {
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    option.subControls &= ~QStyle::SC_GroupBoxFrame;
    QStylePainter(this).drawComplexControl(QStyle::CC_GroupBox, option);
  }
};

QLabel* LabelFor(QWidget* field, const char* name, const QString& caption) {
  auto* const label = Named(new QLabel(caption, field->parentWidget()), name);
  label->setBuddy(qobject_cast<QLineEdit*>(field));
  return label;
}

}  // namespace

// The Tab key follows the order in which the controls are made.
TablePanel::TablePanel(editor::WorkingTable& table, QWidget* parent) : QWidget(parent) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(BuildInstruments());
  layout->addWidget(BuildModes());
  grid = new editor::CurveGridView(table, this);
  layout->addWidget(BuildColumnLabels());
  layout->addWidget(grid, 1);
  layout->addWidget(BuildClipboard());
}

QGroupBox* TablePanel::BuildInstruments() {
  auto* const frame = Named(new HeadedGroup(QStringLiteral("Select Instrument"), this), "Frame1");
  option1 = Named(new QRadioButton(QStringLiteral("&Current"), frame), "Option1",
                  QStringLiteral("The table belongs to the current time test"));
  option2 = Named(new QRadioButton(QStringLiteral("Vo&ltage"), frame), "Option2",
                  QStringLiteral("The table belongs to the voltage time test"));
  option3 = Named(new QRadioButton(frame), "Option3");
  auto* const row = new QHBoxLayout(frame);
  row->setContentsMargins(0, kHeadSpace, 0, kHeadSpace);
  row->addWidget(option1);
  row->addWidget(option2);
  row->addWidget(option3);
  row->addStretch(1);
  return frame;
}

QWidget* TablePanel::BuildModes() {
  auto* const modes = new QWidget(this);
  check1 = Named(
      new QCheckBox(QStringLiteral("A&bsolute values"), modes), "Check1",
      QStringLiteral("Load levels are in amperes or volts, not multiples of the pickup value"));
  check2 = Named(new QCheckBox(QStringLiteral("time unit is m&S"), modes), "Check2",
                 QStringLiteral("Trip times are in milliseconds, not seconds"));
  text2 = Named(new QLineEdit(modes), "Text2");
  text3 = Named(new QLineEdit(modes), "Text3",
                QStringLiteral("Every trip time is multiplied by this number"));
  // Both are offered by the catalogue.
  check1->hide();
  check2->hide();
  auto* const grid2 = new QGridLayout(modes);
  grid2->setContentsMargins(0, 0, 0, 0);
  grid2->addWidget(check1, 0, 0);
  grid2->addWidget(check2, 0, 1);
  labelText2 = LabelFor(text2, "LabelText2", QStringLiteral("I > value (A)"));
  grid2->addWidget(labelText2, 1, 0);
  grid2->addWidget(LabelFor(text3, "LabelText3", QStringLiteral("Time multiplier")), 1, 1);
  grid2->addWidget(text2, 2, 0);
  grid2->addWidget(text3, 2, 1);
  return modes;
}

QWidget* TablePanel::BuildColumnLabels() {
  auto* const row = new QWidget(this);
  label3 = Named(new QLabel(row), "Label3");
  label2 = Named(new QLabel(row), "Label2");
  auto* const layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 6, 0, 0);
  layout->addWidget(label3, 1);
  layout->addWidget(label2, 1);
  label2->setAlignment(Qt::AlignRight);
  return row;
}

QWidget* TablePanel::BuildClipboard() {
  auto* const row = new QWidget(this);
  auto* const layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  command7 = Named(new QPushButton(QStringLiteral("&Import Clipboard data"), row), "Command7");
  command8 = Named(new QPushButton(row), "Command8");
  command9 = Named(new QPushButton(row), "Command9");
  for (QPushButton* const button : {command7, command8, command9}) layout->addWidget(button);
  HideButtonsWithoutCaption();
  return row;
}

void TablePanel::HideButtonsWithoutCaption() {
  for (QPushButton* const button : {command7, command8, command9}) {
    button->setHidden(button->text().trimmed().isEmpty());
  }
  for (QRadioButton* const choice : {option1, option2, option3}) {
    choice->setHidden(choice->text().trimmed().isEmpty());
  }
}

}  // namespace zentab::app
