#include "app/widgets/help/help_menu.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>

#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/help/guide.h"
#include "app/widgets/help/key_list.h"
#include "app/widgets/help/parts_list.h"
#include "platform/paths.h"

namespace zentab::app {
namespace {

constexpr const char* kKeysAction = "m_keys";
constexpr const char* kLog = "m_sessionlog";
constexpr const char* kAbout = "m_about";

QString Of(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

HelpMenu::HelpMenu(const Parts& parts) : QObject(&parts.form), parts_(parts) {
  QMenu* const menu = parts_.form.menuBar()->addMenu(QStringLiteral("&Help"));
  menu->setObjectName(QStringLiteral("m_help"));
  struct CommandRow {
    const char* name;
    const char* caption;
    void (HelpMenu::*run)();
  };
  for (const auto& [name, caption, run] :
       {CommandRow{"m_guide", "&Guide", &HelpMenu::ShowGuide},
        CommandRow{kKeysAction, "&Keys", &HelpMenu::ShowKeys},
        CommandRow{kLog, "&Log of this session", &HelpMenu::ShowLog},
        CommandRow{kAbout, "&About Zentab", &HelpMenu::ShowAbout}}) {
    QAction* const action = menu->addAction(QString::fromUtf8(caption));
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, run);
  }
  menu->actions().constFirst()->setShortcut(Qt::Key_F1);
}

void HelpMenu::ShowGuide() { parts_.guide.OpenFor(QApplication::focusWidget()); }

void HelpMenu::ShowKeys() {
  const texts::HelpTexts& texts = parts_.session.texts.help;
  Show(kKeysAction, {{}, {}, {Of(texts.command), Of(texts.keys)}, KeysOf(parts_.form)});
}

void HelpMenu::ShowLog() {
  const texts::HelpTexts& texts = parts_.session.texts.help;
  std::vector<QStringList> rows;
  for (const std::string& line : parts_.log.Lines()) rows.push_back({Of(line)});
  const std::string note =
      parts_.session.texts.logSwitch
          ? Expanded(parts_.session, texts.logFile, {platform::ToText(parts_.log.File())})
          : texts.noLogFile;
  Show(kLog, {{}, Of(note), {Of(texts.event)}, std::move(rows)});
}

void HelpMenu::ShowAbout() {
  const texts::HelpTexts& texts = parts_.session.texts.help;
  Show(kAbout, {{},
                {},
                {Of(texts.part), Of(texts.version), Of(texts.licence)},
                PartsOfProgram(Of(texts.compiler))});
}

void HelpMenu::Show(const char* action, TextTable table) {
  table.title = PlainTitle(parts_.form.findChild<QAction*>(QLatin1String(action))->text());
  auto* const dialog = new TextTableDialog(table, parts_.session, &parts_.form);
  connect(dialog, &TextTableDialog::GuideWanted, this,
          [this, isKeys = action == kKeysAction] { parts_.guide.Open(isKeys ? "keys" : "index"); });
  dialog->open();
}

}  // namespace zentab::app
