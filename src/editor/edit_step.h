#pragma once

namespace zentab::editor {

/// What a user does to the grid, its value modes or the library, in one step of the history.
enum class EditStep {
  // the grid and the value modes
  Typing,
  Paste,
  Clear,
  Cut,
  Read,
  TimeTest,
  GraphImport,
  Pickup,
  Multiplier,
  AbsoluteValues,
  TimeUnit,
  Instrument,
  // the point tools
  InsertRow,
  DeleteRows,
  MoveRowsUp,
  MoveRowsDown,
  SortByLoad,
  Reverse,
  ScaleLoads,
  ScaleTimes,
  ShiftLoads,
  ShiftTimes,
  RoundNumbers,
  ConvertLoads,  // between multiples of the pickup value and amperes or volts
  ConvertTimes,  // between s and ms
  FillBetween,
  // the curve as a whole
  StandardCurve,
  FitCurve,
  ThinOut,
  Resample,
  // points by hand in the chart
  MovePoint,
  AddPoint,
  // the library
  Update,
  AddNew,
  Remove,
  RenameEntry,
  DuplicateEntries,
  MoveEntries,
  SortLibrary,
  Import,
  // another program's files, another library
  ImportCurve,
  TakeOver,
  // a table of a former session
  BringBack,
};

}  // namespace zentab::editor
