#include "app/widgets/colour_scheme.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QPalette>
#include <QStyle>
#include <array>

#include "app/widgets/files/responsive_files.h"
#include "platform/desktop.h"

namespace zentab::app {
namespace {

constexpr std::string_view kSection = "View";
constexpr std::string_view kKey = "Colours";

// Draws with any palette, which the systems' own styles do not.
const QString& OwnStyle() {
  static const QString name = QStringLiteral("fusion");
  return name;
}

struct ColourRow {
  QPalette::ColorRole role;
  QRgb light;
  QRgb dark;
};

constexpr std::array<ColourRow, 14> kColours = {{
    {QPalette::Window, 0xFFEFEFEF, 0xFF2B2D30},
    {QPalette::WindowText, 0xFF000000, 0xFFE6E6E6},
    {QPalette::Base, 0xFFFFFFFF, 0xFF1E1F22},
    {QPalette::AlternateBase, 0xFFF7F7F7, 0xFF26282B},
    {QPalette::Text, 0xFF000000, 0xFFE6E6E6},
    {QPalette::Button, 0xFFEFEFEF, 0xFF393B40},
    {QPalette::ButtonText, 0xFF000000, 0xFFE6E6E6},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Highlight, 0xFF1F6FC4, 0xFF2F65A8},
    {QPalette::HighlightedText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Link, 0xFF0B57A4, 0xFF7DB4F0},
    {QPalette::ToolTipBase, 0xFFFFFFDC, 0xFF393B40},
    {QPalette::ToolTipText, 0xFF000000, 0xFFE6E6E6},
    {QPalette::PlaceholderText, 0xFF6B6B6B, 0xFF9A9DA3},
}};

constexpr std::array<ColourRow, 3> kDisabled = {{
    {QPalette::WindowText, 0xFF8A8A8A, 0xFF7C7F85},
    {QPalette::Text, 0xFF8A8A8A, 0xFF7C7F85},
    {QPalette::ButtonText, 0xFF8A8A8A, 0xFF7C7F85},
}};

QPalette ColoursOf(bool dark) {
  const auto of = [dark](const ColourRow& row) { return QColor(dark ? row.dark : row.light); };
  // Edges are shades of the button's colour.
  QPalette palette(of(kColours[5]), of(kColours[0]));
  for (const ColourRow& row : kColours) palette.setColor(row.role, of(row));
  for (const ColourRow& row : kDisabled) palette.setColor(QPalette::Disabled, row.role, of(row));
  return palette;
}

struct SchemeRow {
  const char* name;
  const char* caption;
  const char* setting;
};

constexpr std::size_t kSystem = 0;
constexpr std::size_t kDark = 2;
constexpr std::array<SchemeRow, 3> kSchemes = {{
    {"m_colsystem", "&System", "system"},
    {"m_collight", "&Light", "light"},
    {"m_coldark", "&Dark", "dark"},
}};

void Show(std::size_t scheme, const QString& systemStyle) {
  const bool isDark = scheme == kDark || (scheme == kSystem && platform::WantsDarkWindows());
  const bool isOwn = isDark || scheme != kSystem;
  const QString& style = isOwn ? OwnStyle() : systemStyle;
  if (QApplication::style()->name() != style) QApplication::setStyle(style);
  QApplication::setPalette(isOwn ? ColoursOf(isDark) : QPalette());
}

}  // namespace

ColourScheme::ColourScheme(QMenu& view, ResponsiveFiles& files, platform::SettingsStore& store,
                           std::string title)
    : QObject(&view),
      files_(files),
      store_(store),
      title_(std::move(title)),
      systemStyle_(QApplication::style()->name()),
      group_(new QActionGroup(this)) {
  QMenu* const menu = view.addMenu(QStringLiteral("C&olours"));
  menu->setObjectName(QStringLiteral("m_colours"));
  const std::string kept = store_.Read(title_, kSection, kKey).value_or("");
  std::size_t shown = kSystem;
  for (std::size_t scheme = 0; scheme < kSchemes.size(); ++scheme) {
    const SchemeRow& row = kSchemes[scheme];
    QAction* const action = menu->addAction(QString::fromUtf8(row.caption));
    action->setObjectName(QLatin1String(row.name));
    action->setCheckable(true);
    group_->addAction(action);
    if (kept == row.setting) shown = scheme;
    action->setChecked(scheme == shown);
    connect(action, &QAction::triggered, this, [this, scheme] { Choose(scheme); });
  }
  if (shown != kSystem || platform::WantsDarkWindows()) Show(shown, systemStyle_);
}

ColourScheme::~ColourScheme() { Show(kSystem, systemStyle_); }

void ColourScheme::Choose(std::size_t scheme) {
  Show(scheme, systemStyle_);
  // The next start has the system's colours then.
  [[maybe_unused]] const std::error_code dropped = files_.Ask([this, scheme] {
    return store_.Save(title_, kSection, {{std::string(kKey), kSchemes[scheme].setting}});
  });
}

}  // namespace zentab::app
