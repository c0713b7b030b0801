#pragma once

#include <QObject>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "app/widgets/qt_words.h"
#include "app/widgets/window_texts.h"
#include "platform/settings_store.h"

class QActionGroup;
class QMenu;

namespace zentab::app {

class ResponsiveFiles;

/// The language of the window and of Qt's own dialogs: as the catalogues of the installation have
/// it, or that of a catalogue of the catalogues folder. The menu `m_language` in the View menu
/// chooses, and the settings keep the choice.
class LanguageMenu : public QObject {
  Q_OBJECT

 public:
  struct Parts {
    Session& session;
    ResponsiveFiles& files;
    platform::SettingsStore& store;
    std::string title;
    std::filesystem::path executable;
    const std::vector<std::filesystem::path>& catalogues;  // in the order of their application
  };

  /// Adds the menu at the end of another one.
  LanguageMenu(QMenu& view, Parts parts);

  /// The catalogues of a start have been applied to `texts`, which outlives this; has them in the
  /// language that was chosen last.
  void Begin(WindowTexts& texts);

 Q_SIGNALS:
  /// All texts are others.
  void Switched();

 private:
  void Add(QMenu& menu, const QString& caption, const QString& name,
           const std::filesystem::path& file);
  void Choose(const std::filesystem::path& file);

  Parts parts_;
  std::filesystem::path kept_;
  QtWords qt_;
  WindowTexts* texts_ = nullptr;  // once there is something to be read
  QActionGroup* group_;
};

}  // namespace zentab::app
