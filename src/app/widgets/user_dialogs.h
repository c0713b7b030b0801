#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/widgets/report/picture_size.h"
#include "editor/chart_axes.h"
#include "texts/catalogue_texts.h"

class QPrinter;

namespace zentab::app {

/// The question for one number.
struct NumberQuestion {
  using Rule = std::function<bool(double)>;

  QString title;
  QString label;
  double number;  // offered as the answer
  Rule accepts;   // which finite numbers are an answer
};

/// A question with some answers to choose one of.
struct Choice {
  QString label;
  std::vector<QString> answers;
  std::size_t given = 0;  // the one that is offered
};
struct ChoiceQuestion {
  QString title;
  std::vector<Choice> choices;
};

/// The question for a file to write.
struct WriteQuestion {
  QString title;
  QString name;     // offered
  QString filters;  // "PNG (*.png);;PDF (*.pdf)"; the first one's end is added to a bare name
};

/// Draws the pages of a document on a printer.
using PagePainter = std::function<void(QPrinter&)>;

/// The limits of two axes; nothing: as far as what is shown reaches.
struct AxisLimits {
  std::optional<editor::Range> loads;
  std::optional<editor::Range> times;
};

/// The question for the limits of the chart's axes, in the units that they are labelled with.
struct LimitsQuestion {
  AxisLimits limits;    // as they are
  editor::Range loads;  // what is in view now: the other end where only one is given
  editor::Range times;
  editor::AxisKinds logarithmic;  // such an axis takes nothing but numbers above zero
  QString loadLabel;
  QString timeLabel;
};

/// What the main window asks the user, so that a test can give the answers.
class UserDialogs {
 public:
  virtual ~UserDialogs() = default;

  /// Asks with OK and Cancel; true for OK.
  [[nodiscard]] virtual bool Confirm(const texts::MessageText& message) = 0;
  /// Tells something; there is only OK.
  virtual void Inform(const texts::MessageText& message) = 0;
  /// Tells of a failure, with the icon of a critical error; there is only OK.
  virtual void ReportError(const texts::MessageText& message) = 0;
  /// Asks for a number; nothing when cancelled.
  [[nodiscard]] virtual std::optional<double> AskNumber(const NumberQuestion& question) = 0;
  /// Asks for an answer to each of some questions, by their numbers; nothing when cancelled.
  [[nodiscard]] virtual std::optional<std::vector<std::size_t>> Choose(
      const ChoiceQuestion& question) = 0;
  /// Asks for the limits of the axes; nothing when cancelled.
  [[nodiscard]] virtual std::optional<AxisLimits> AskLimits(const LimitsQuestion& question) = 0;
  /// Asks how large a picture is to be; nothing when cancelled.
  [[nodiscard]] virtual std::optional<PictureSize> AskPictureSize(
      const PictureSizeQuestion& question) = 0;
  /// Lets the user choose an existing table file; empty when cancelled.
  [[nodiscard]] virtual QString ChooseTableFile() = 0;
  /// Lets the user name a table file to be made; one that exists has been agreed to be replaced.
  /// Empty when cancelled.
  [[nodiscard]] virtual QString ChooseNewTableFile() = 0;
  /// Shows a folder in the system's file manager.
  virtual void OpenFolder(const QString& folder) = 0;
  /// Shows a page, a file, in the system's browser; false where there is none.
  [[nodiscard]] virtual bool OpenPage(const QString& page) = 0;
  /// Starts a program beside this one; false where that fails.
  [[nodiscard]] virtual bool StartProgram(const QString& program, const QStringList& arguments) = 0;
  /// Lets the user choose some of the entries of a file, by their places among the names.
  [[nodiscard]] virtual std::vector<std::size_t> ChooseEntries(
      const QString& title, const std::vector<std::string>& names) = 0;
  /// Lets the user choose an existing reference graph file; empty when cancelled.
  [[nodiscard]] virtual QString ChooseGraphFile() = 0;
  /// Lets the user choose an existing file of another program; empty when cancelled. `filters` as
  /// those of WriteQuestion.
  [[nodiscard]] virtual QString ChooseFileToRead(const QString& filters) = 0;
  /// Lets the user choose the table file to add entries to, which need not exist; empty when
  /// cancelled.
  [[nodiscard]] virtual QString ChooseTargetFile() = 0;
  /// Lets the user choose a file to write, and asks before one that exists is replaced; empty when
  /// cancelled.
  [[nodiscard]] virtual QString ChooseFileToWrite(const WriteQuestion& question) = 0;
  /// Lets the user choose a printer, its settings and pages; false when cancelled.
  [[nodiscard]] virtual bool ChoosePrinter(QPrinter& printer) = 0;
  /// Shows pages as they would be printed, and prints them if the user wants that.
  virtual void ShowPreview(QPrinter& printer, const PagePainter& paint) = 0;
};

}  // namespace zentab::app
