#include "app/widgets/window_font.h"

#include <QFontInfo>
#include <QWidget>

#include "platform/locale_queries.h"

namespace zentab::app {
namespace {

class QtFontSystem : public texts::FontSystem {
 public:
  [[nodiscard]] std::uint32_t SystemLocale() const override {
    return platform::SystemLocaleIdentifier();
  }
  [[nodiscard]] std::optional<int> UserCharacterSet() const override {
    return platform::UserCharacterSet();
  }
  [[nodiscard]] std::string ResolvedFace(const std::string& face) const override {
    return QFontInfo(QFont(QString::fromStdString(face))).family().toStdString();
  }
};

}  // namespace

void ApplyUiFont(QWidget& window, texts::UiFontChoice& choice) {
  const texts::UiFont& chosen = choice.ChooseUiFont(QtFontSystem());
  QFont font = window.font();
  if (!chosen.face.empty()) font.setFamily(QString::fromStdString(chosen.face));
  if (chosen.size > 0) font.setPointSize(chosen.size);
  // Controls take over their window's font; the loop reaches those that were given one of their
  // own.
  window.setFont(font);
  for (QWidget* const control : window.findChildren<QWidget*>()) {
    if (control->font() != font) control->setFont(font);
  }
}

}  // namespace zentab::app
