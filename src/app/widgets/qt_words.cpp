#include "app/widgets/qt_words.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QRegularExpression>

namespace zentab::app {

QtWords::~QtWords() { QCoreApplication::removeTranslator(&translator_); }

void QtWords::Speak(const QString& language) {
  QCoreApplication::removeTranslator(&translator_);
  // Anything may stand in a catalogue, and a part of it would name a file elsewhere.
  static const QRegularExpression code(QStringLiteral("^[A-Za-z]{2,3}([_-][A-Za-z0-9]+)*$"));
  if (!code.match(language).hasMatch()) return;
  const QString name = QStringLiteral("qtbase_") + QString(language).replace('-', '_');
  for (const QString& folder :
       {QLibraryInfo::path(QLibraryInfo::TranslationsPath),
        QCoreApplication::applicationDirPath() + QStringLiteral("/translations")}) {
    if (!translator_.load(name, folder)) continue;
    QCoreApplication::installTranslator(&translator_);
    return;
  }
}

}  // namespace zentab::app
