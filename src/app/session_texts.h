#pragma once

#include <ctime>
#include <string>
#include <string_view>
#include <system_error>

#include "app/session.h"
#include "texts/template_text.h"

namespace zentab::app {

/// The message boxes of the main window, by their numbers.
enum class MessageBox {
  DiscardEdits = 1,
  ConfirmRemoval = 2,
  ConfirmUpdate = 3,
  DiscardEditsOnExit = 4,
  DuplicateName = 5,
  OpenFailed = 6,
};

/// The present local time.
[[nodiscard]] std::tm LocalTime();

/// A template with its fields filled in from the session, at the present time.
[[nodiscard]] std::string Expanded(const Session& session, std::string_view text,
                                   const texts::TemplateArguments& arguments = {});

/// Why a file could not be read or written: the program's own words where it has some, else those
/// of the system.
[[nodiscard]] std::string ReasonText(const texts::ProgramTexts& texts, std::error_code error);

/// A message box's title and text about an entry.
[[nodiscard]] texts::MessageText MessageFor(const Session& session, MessageBox box,
                                            std::string_view entryName);

/// The message that the chosen instrument's time test could not be opened; its title has fields
/// as well.
[[nodiscard]] texts::MessageText OpenFailedMessage(const Session& session);

/// The value modes with the texts of pickup value and multiplier as files have them, with ".".
[[nodiscard]] editor::ValueModes ModesInFiles(const Session& session);

/// The texts of the chosen instrument; where the voltage one has no caption or tooltip, the
/// current one's serves. Empty when none is chosen.
[[nodiscard]] texts::InstrumentTexts InstrumentInUse(const Session& session);

/// A number with so many decimals and the user's decimal separator.
[[nodiscard]] std::string FixedNumber(double number, int decimals, const Session& session);

struct LabelPair {
  std::string load;
  std::string time;
};

/// The captions of load levels and trip times that the value modes call for.
[[nodiscard]] LabelPair LabelsFor(const Session& session);

/// The unit of loads that are absolute values of an instrument, or multiples of the pickup value.
[[nodiscard]] const std::string& LoadUnitOf(bool absoluteValues, tables::Instrument instrument,
                                            const Session& session);

/// The captions of the chart's axes, which hold those of the value modes; the load axis may have
/// another mode.
[[nodiscard]] LabelPair AxisTitlesFor(const Session& session, bool absoluteLoads);

}  // namespace zentab::app
