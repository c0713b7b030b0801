#pragma once

#include <QString>
#include <QTranslator>

namespace zentab::app {

/// What Qt says by itself (buttons, names of keys, its dialogs and context menus), in a language
/// that it has been translated to; in English otherwise, and again at the end.
class QtWords {
 public:
  QtWords() = default;
  ~QtWords();
  QtWords(const QtWords&) = delete;
  QtWords& operator=(const QtWords&) = delete;

  /// The language as translations are named ("de", "zh_CN"). They lie where Qt keeps them, or in
  /// the folder "translations" beside the program.
  void Speak(const QString& language);

 private:
  QTranslator translator_;
};

}  // namespace zentab::app
