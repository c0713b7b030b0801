#include "app/library_change.h"

namespace zentab::app {

std::error_code MakeChange(const tables::LineChange& change, Session& session,
                           tables::TableWriter& writer) {
  const auto isThere = [&session](std::uint64_t hash) {
    return session.listing.PlaceOf({0, hash}) != tables::kNoLine;
  };
  const bool hadSource = session.source && isThere(session.source->hash);
  if (const auto error = writer.Make(change, session.listing)) return error;
  // What the user has replaced himself nobody else can have changed.
  if (hadSource && !isThere(session.source->hash)) session.source.reset();
  return {};
}

std::error_code ChangeLibrary(const tables::LineChange& change, Session& session,
                              tables::TableWriter& writer, tables::EntryMark& selected) {
  if (const auto error = MakeChange(change, session, writer)) return error;
  selected.index = session.listing.PlaceOf(selected);
  if (selected.index == tables::kNoLine) {
    selected = tables::FirstEntry(change, session.listing).value_or(selected);
  }
  return {};
}

}  // namespace zentab::app
