#pragma once

#include <QDialog>
#include <optional>

#include "app/session.h"
#include "app/widgets/user_dialogs.h"

class QGridLayout;
class QLineEdit;

namespace zentab::app {

/// Asks for the limits of the chart's axes. Both fields of an axis empty leave its limits to the
/// curve; one alone takes the end in view for the other. Numbers have the user's decimal separator,
/// "," or ".".
class LimitsDialog : public QDialog {
  Q_OBJECT

 public:
  LimitsDialog(const LimitsQuestion& question, const Session& session, QWidget* parent);

  /// What stands in the fields; nothing where that is no answer.
  [[nodiscard]] std::optional<AxisLimits> Limits() const;

 private:
  struct Fields {
    QLineEdit* from;
    QLineEdit* to;
  };
  Fields AddRow(QGridLayout& grid, const char* name, const QString& label,
                const std::optional<editor::Range>& limits, const editor::Range& inView);
  [[nodiscard]] bool Read(const Fields& fields, const editor::Range& inView, bool logarithmic,
                          std::optional<editor::Range>& limits) const;

  LimitsQuestion question_;
  const Session& session_;
  Fields loads_{};
  Fields times_{};
};

}  // namespace zentab::app
