#include "app/widgets/library/entry_order_menu.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <array>

#include "app/widgets/files/kept_forms.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/library/library_panel.h"

namespace zentab::app {
namespace {

constexpr const char* kOrderForm = "EntryOrder";
constexpr const char* kOrder = "Order";

struct OrderRow {
  const char* name;
  const char* caption;
  EntryOrder order;
  const char* setting;
};

constexpr std::array<OrderRow, kEntryOrders> kOrders = {{
    {"m_orderfile", "As in the &file", EntryOrder::File, "file"},
    {"m_ordername", "By &name", EntryOrder::Name, "name"},
    {"m_orderinstrument", "By &instrument", EntryOrder::Instrument, "instrument"},
}};

}  // namespace

EntryOrderMenu::EntryOrderMenu(QMenu& menu, LibraryPanel& panel, ResponsiveFiles& files,
                               KeptForms& forms)
    : QObject(&menu), panel_(panel), files_(files), forms_(forms), group_(new QActionGroup(this)) {
  QMenu* const orders = menu.addMenu(QStringLiteral("&Order"));
  orders->setObjectName(QStringLiteral("m_order"));
  const FormValues values = forms_.Last(kOrderForm);
  const std::string& kept = ValueOf(values, kOrder);
  for (const OrderRow& row : kOrders) {
    QAction* const action = orders->addAction(QString::fromUtf8(row.caption));
    action->setObjectName(QLatin1String(row.name));
    action->setCheckable(true);
    group_->addAction(action);
    const bool isKept = kept == row.setting;
    action->setChecked(isKept || row.order == EntryOrder::File);
    if (isKept && row.order != EntryOrder::File) panel_.SetOrder(row.order);
    connect(action, &QAction::triggered, this, [this, order = row.order] { Choose(order); });
  }
}

void EntryOrderMenu::Choose(EntryOrder order) {
  const ResponsiveFiles::Work work(files_);
  panel_.SetOrder(order);
  forms_.Keep(kOrderForm, {{kOrder, kOrders.at(static_cast<std::size_t>(order)).setting}});
}

}  // namespace zentab::app
