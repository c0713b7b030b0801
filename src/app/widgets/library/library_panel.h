#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "tables/table_listing.h"

class QGridLayout;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QStackedWidget;

namespace zentab::app {

class EntryListModel;

/// The left of the main window: a field to find names by, the entry list `List1` with Read
/// `Command1`, Remove `Command2`, Add New `Command3` and Update `Command4`, in whose place the name
/// box `Text1` appears.
class LibraryPanel : public QWidget {
  Q_OBJECT

 public:
  LibraryPanel(const std::vector<std::string>& names, QWidget* parent);

  /// The names have changed: shows them and selects that one, if it is shown.
  void ShowNames(std::size_t selected);
  /// The same, but selects the next one that is shown, or the last one.
  void ShowNamesFrom(std::size_t place);
  /// The names are those of another file: shows all of them and selects the first.
  void ShowAllNames();
  /// Brings the name at a place into view, without a filter if that hides it.
  void Reveal(std::size_t place);
  /// Lists only the names that hold a text, and keeps the selection or selects the first.
  void ApplyFilter(const QString& text);
  /// Called again and again while the names are looked through.
  void SetKeepAlive(tables::KeepAlive keepAlive);
  /// The place of the selected entry among all names.
  [[nodiscard]] std::optional<std::size_t> SelectedIndex() const;

  void OpenNameBox();
  void CloseNameBox();
  void EmptyNameBox();

  /// Whether the grid holds a table that can be stored.
  void SetStorable(bool storable);

 Q_SIGNALS:
  void FilterWanted(const QString& text);
  void ReadWanted();
  void RemoveWanted();
  void AddNewWanted();
  void UpdateWanted();
  void NameEntered(const QString& name);

 private:
  [[nodiscard]] QPushButton* AddButton(QGridLayout* layout, int place, const char* name,
                                       const QString& caption, const QString& tip);
  void BuildFilter();
  void BuildButtons();
  void BuildNameBox();
  void RefreshButtons();
  void SelectRow(int row);

  EntryListModel* model_;
  QLabel* label1_;
  QLineEdit* filter_;
  QListView* list1_;
  QStackedWidget* places_;
  QPushButton* command1_ = nullptr;
  QPushButton* command2_ = nullptr;
  QPushButton* command3_ = nullptr;
  QPushButton* command4_ = nullptr;
  QLineEdit* text1_ = nullptr;
};

}  // namespace zentab::app
