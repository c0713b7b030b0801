#include "app/message_texts.h"

namespace zentab::app {
namespace {

struct MessageRow {
  MessageBox box;
  std::string_view title;
  std::string_view text;
};

constexpr std::array<MessageRow, 5> kMessages = {{
    {MessageBox::DiscardEdits, "Discard edits",
     "The table in the grid has edits that are not stored. Discard them?"},
    {MessageBox::ConfirmRemoval, "Remove entry", "Remove the entry \"%1\" from the table file?"},
    {MessageBox::ConfirmUpdate, "Update entry",
     "Replace the stored entry \"%1\" by the table in the grid?"},
    {MessageBox::DiscardEditsOnExit, "Exit",
     "The table in the grid has edits that are not stored. Exit and discard them?"},
    {MessageBox::DuplicateName, "Add new",
     "The table file has an entry of this name already. Choose another name."},
}};

}  // namespace

MessageText MessageFor(MessageBox box, std::string_view entryName) {
  for (const MessageRow& row : kMessages) {
    if (row.box != box) continue;
    MessageText message{std::string(row.title), std::string(row.text)};
    const std::size_t field = message.text.find("%1");
    if (field != std::string::npos) message.text.replace(field, 2, entryName);
    return message;
  }
  return {};
}

}  // namespace zentab::app
