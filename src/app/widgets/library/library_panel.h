#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "app/entry_order.h"
#include "tables/table_listing.h"

class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace zentab::app {

class EntryListModel;
class EntryListView;

/// The left of the main window: a field to find names by, the entry list `List1` with Read
/// `Command1`, Remove `Command2`, Add New `Command3` and Update `Command4`, in whose place the name
/// box `Text1` appears.
class LibraryPanel : public QWidget {
  Q_OBJECT

 public:
  LibraryPanel(const tables::TableListing& listing, QWidget* parent);

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
  /// Lists the names in an order, and keeps the selection.
  void SetOrder(EntryOrder order);
  /// Whether the list shows all names as the file has them.
  [[nodiscard]] bool ShowsWholeFile() const;
  /// The place of the selected entry among all names; of several, the one that has the keys.
  [[nodiscard]] std::optional<std::size_t> SelectedIndex() const;
  /// The places of all selected entries, as they stand in the file, and how many they are.
  [[nodiscard]] std::vector<std::size_t> SelectedPlaces() const;
  [[nodiscard]] int SelectedCount() const;
  /// Selects the names at these places, as far as they are shown; the first has the keys.
  void SelectPlaces(const std::vector<std::size_t>& places);

  [[nodiscard]] EntryListView& List() const { return *list1_; }

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
  /// Another name was typed for an entry, as it was shown.
  void RenameWanted(const zentab::tables::EntryMark& entry, const QString& name);
  /// The selected entries are to stand in front of the one at a place, or behind the last one.
  void MoveToWanted(std::size_t place);

 private:
  [[nodiscard]] QPushButton* AddButton(QGridLayout* layout, int place, const char* name,
                                       const QString& caption, const QString& tip);
  void BuildFilter();
  void BuildButtons();
  void BuildNameBox();
  void RefreshButtons();
  void BuildList();
  void SelectRow(int row);

  EntryListModel* model_;
  QLabel* label1_;
  QLineEdit* filter_;
  EntryListView* list1_;
  QStackedWidget* places_;
  QPushButton* command1_ = nullptr;
  QPushButton* command2_ = nullptr;
  QPushButton* command3_ = nullptr;
  QPushButton* command4_ = nullptr;
  QLineEdit* text1_ = nullptr;
};

}  // namespace zentab::app
