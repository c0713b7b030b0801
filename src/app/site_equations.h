#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/file_layer.h"
#include "texts/catalogue_texts.h"

namespace zentab::app {

/// Which of the equations for the import of a time test.
struct EquationId {
  texts::EquationStage stage = texts::EquationStage::Difference;
  std::size_t number = 1;  // 1 to texts::kEquations

  friend bool operator==(const EquationId&, const EquationId&) = default;
  friend bool operator<(const EquationId& a, const EquationId& b) {
    return a.stage != b.stage ? a.stage < b.stage : a.number < b.number;
  }
};

/// Its text among others.
[[nodiscard]] const std::string& EquationOf(const texts::EquationTexts& equations, EquationId id);

/// Whether a catalogue can keep a text as an equation: one line without "}".
[[nodiscard]] bool CanBeKept(std::string_view equation);

/// The bytes of a catalogue with another equation, all others as they were: the line that has it
/// gets another text between its braces, else there is a new line, in front of one that would be
/// found instead. Nothing where it cannot be done: a text that cannot be kept, or lines that hold
/// the key in a way that this does not foresee.
[[nodiscard]] std::optional<std::string> WithEquation(std::string_view catalogue, EquationId id,
                                                      std::string_view equation);

/// The catalogue, of those that a start applies in that order, into which an equation is written:
/// the site's last one that has it, else the site's first one, which need not exist. The site's are
/// the last two.
[[nodiscard]] std::filesystem::path SiteCatalogueFor(
    platform::FileLayer& files, std::span<const std::filesystem::path> catalogues, EquationId id);

/// Writes an equation into a catalogue as platform::ReplaceFile does, with its errors; a missing
/// one is made. Fails with std::errc::invalid_argument where WithEquation gives nothing.
[[nodiscard]] std::error_code WriteEquation(platform::FileLayer& files,
                                            const std::filesystem::path& catalogue, EquationId id,
                                            std::string_view equation);

/// The text of an equation that the catalogues together give; empty for none.
[[nodiscard]] std::string EquationInUse(platform::FileLayer& files,
                                        std::span<const std::filesystem::path> catalogues,
                                        EquationId id);

}  // namespace zentab::app
