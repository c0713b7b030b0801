#pragma once

#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <QVariant>
#include <vector>

#include "texts/apply_texts.h"

namespace zentab::app {

/// Gives the controls of a window, by their object names, the texts of a catalogue. It knows the
/// controls that the window has when this is made.
class FormTexts : public texts::TextTarget {
 public:
  explicit FormTexts(QMainWindow& form);

  void SetCaption(std::string_view control, std::string_view text) override;
  void SetContent(std::string_view control, std::string_view text) override;
  void SetTooltip(std::string_view control, std::string_view text) override;
  void SetShown(std::string_view control, bool shown) override;
  void SetPlaceholder(std::string_view control, std::string_view text) override;
  void SetSpokenName(std::string_view control, std::string_view text) override;
  [[nodiscard]] std::string Caption(std::string_view control) const override;

  /// The controls have the words that they had before the first ones of a catalogue. What they
  /// hold and whether they are shown stays.
  void ForgetWords();

 private:
  struct FormerWord {
    QPointer<QObject> control;
    const char* property;
    QVariant value;
  };

  [[nodiscard]] QObject* Find(std::string_view control) const;
  void SetProperty(std::string_view control, const char* property, const QVariant& value);
  void SetWord(std::string_view control, const char* property, std::string_view text);

  QHash<QString, QPointer<QObject>> controls_;
  std::vector<FormerWord> former_;
};

}  // namespace zentab::app
