#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace zentab::app {

/// The message boxes of the main window, by their numbers.
enum class MessageBox {
  DiscardEdits = 1,
  ConfirmRemoval = 2,
  ConfirmUpdate = 3,
  DiscardEditsOnExit = 4,
  DuplicateName = 5,
};

struct MessageText {
  std::string title;
  std::string text;  // "%1" stands for the entry's name
};

/// A message box's title and text about an entry.
[[nodiscard]] MessageText MessageFor(MessageBox box, std::string_view entryName);

}  // namespace zentab::app
