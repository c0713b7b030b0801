#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "app/report_settings.h"
#include "app/widgets/library/entry_list_model.h"
#include "texts/catalogue_texts.h"

class QCheckBox;
class QComboBox;
class QListView;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace zentab::app {

/// The dialog `FormReport`: what the report is on, what stands above it, and where it goes.
class ReportDialog : public QDialog {
  Q_OBJECT

 public:
  /// What there is to report on.
  struct Choice {
    const std::vector<std::string>& names;  // of the table file's entries
    bool hasTable;                          // the grid holds one
    bool hasAssessment;                     // of it
  };

  ReportDialog(const Choice& choice, const texts::CatalogueTexts& texts,
               const ReportSettings& settings, QWidget* parent);

  /// The places of the chosen entries; none: the table in the grid.
  [[nodiscard]] std::vector<std::size_t> Entries() const;
  [[nodiscard]] bool IsOnGrid() const;
  [[nodiscard]] ReportSettings Settings() const;

 Q_SIGNALS:
  void PreviewWanted();
  void PrintWanted();
  void SaveWanted();

 private:
  [[nodiscard]] QWidget* BuildChoice(const Choice& choice, const texts::OutputTexts& texts);
  [[nodiscard]] QWidget* BuildSettings(const texts::OutputTexts& texts,
                                       const ReportSettings& settings);
  [[nodiscard]] QLayout* BuildButtons(const texts::CatalogueTexts& texts);
  void Refresh();

  bool hasAssessment_;
  bool withAssessment_;  // where there is one
  EntryListModel entries_;
  QRadioButton* grid_ = nullptr;
  QRadioButton* library_ = nullptr;
  QListView* list_ = nullptr;
  QPlainTextEdit* header_ = nullptr;
  QComboBox* paper_ = nullptr;
  QCheckBox* assessment_ = nullptr;
  std::vector<QPushButton*> outputs_;
};

}  // namespace zentab::app
