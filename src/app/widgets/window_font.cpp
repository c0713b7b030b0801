#include "app/widgets/window_font.h"

#include <QApplication>
#include <QFontInfo>
#include <QWidget>

#include "platform/locale_queries.h"

namespace zentab::app {
namespace {

// Points of the texts of a desktop, and the most that one begins with.
constexpr double kUsualPoints = 9.0;
constexpr double kLargestUsual = 12.0;

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

double TextScale() {
  const double size = QApplication::font().pointSizeF();
  return size > kLargestUsual ? size / kUsualPoints : 1.0;
}

void ApplyUiFont(QWidget& window, texts::UiFontChoice& choice) {
  const texts::UiFont& chosen = choice.ChooseUiFont(QtFontSystem());
  QFont font = window.font();
  if (!chosen.face.empty()) font.setFamily(QString::fromStdString(chosen.face));
  if (chosen.size > 0) font.setPointSizeF(chosen.size * TextScale());
  // Controls take over their window's font; the loop reaches those that were given one of their
  // own.
  window.setFont(font);
  for (QWidget* const control : window.findChildren<QWidget*>()) {
    if (control->font() != font) control->setFont(font);
  }
}

}  // namespace zentab::app
