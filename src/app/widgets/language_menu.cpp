#include "app/widgets/language_menu.h"

#include <QActionGroup>
#include <QMenu>

#include "app/languages.h"
#include "app/widgets/files/responsive_files.h"
#include "platform/paths.h"

namespace zentab::app {

LanguageMenu::LanguageMenu(QMenu& view, Parts parts)
    : QObject(&view),
      parts_(std::move(parts)),
      kept_(KeptLanguage(parts_.store, parts_.title, parts_.executable)),
      group_(new QActionGroup(this)) {
  QMenu* const menu = view.addMenu(QStringLiteral("Lan&guage"));
  menu->setObjectName(QStringLiteral("m_language"));
  Add(*menu, QStringLiteral("As &installed"), QStringLiteral("m_langinstalled"), {});
  menu->addSeparator();
  for (const Language& language : ShippedLanguages(parts_.executable)) {
    QString name = QString::fromStdString(language.name);
    Add(*menu, name.replace('&', QLatin1String("&&")),
        QStringLiteral("m_lang_") + QString::fromStdString(platform::ToText(language.file.stem())),
        language.file);
  }
}

void LanguageMenu::Add(QMenu& menu, const QString& caption, const QString& name,
                       const std::filesystem::path& file) {
  QAction* const action = menu.addAction(caption);
  action->setObjectName(name);
  action->setCheckable(true);
  group_->addAction(action);
  action->setChecked(file == kept_ || file.empty());
  connect(action, &QAction::triggered, this, [this, file] { Choose(file); });
}

void LanguageMenu::Begin(WindowTexts& texts) {
  texts_ = &texts;
  if (!kept_.empty()) texts.ShowWords(OrderOfWords(parts_.catalogues, kept_));
  qt_.Speak(QString::fromStdString(parts_.session.texts.program.language));
}

void LanguageMenu::Choose(const std::filesystem::path& file) {
  const ResponsiveFiles::Work work(parts_.files);
  texts_->ShowWords(OrderOfWords(parts_.catalogues, file));
  qt_.Speak(QString::fromStdString(parts_.session.texts.program.language));
  Q_EMIT Switched();
  // The next start has the language of the installation then.
  [[maybe_unused]] const std::error_code dropped =
      parts_.files.Ask([this, file] { return KeepLanguage(parts_.store, parts_.title, file); });
}

}  // namespace zentab::app
