#pragma once

#include <QObject>
#include <QString>
#include <string>

#include "platform/settings_store.h"

class QActionGroup;
class QMenu;

namespace zentab::app {

class ResponsiveFiles;

/// The colours of all windows: those of the system, or light or dark ones of the program's own. The
/// menu `m_colours` in the View menu chooses, and the settings keep the choice.
class ColourScheme : public QObject {
  Q_OBJECT

 public:
  /// Adds the menu at the end of another one, and shows what was chosen last.
  ColourScheme(QMenu& view, ResponsiveFiles& files, platform::SettingsStore& store,
               std::string title);
  /// The application has its system's colours again.
  ~ColourScheme() override;
  ColourScheme(const ColourScheme&) = delete;
  ColourScheme& operator=(const ColourScheme&) = delete;

 private:
  void Choose(std::size_t scheme);

  ResponsiveFiles& files_;
  platform::SettingsStore& store_;
  std::string title_;
  QString systemStyle_;
  QActionGroup* group_;
};

}  // namespace zentab::app
