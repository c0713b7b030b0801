#include "texts/key_table.h"

namespace zentab::texts {

const std::vector<KeyRow>& HelpRows() {
  using T = HelpTexts;
  static const std::vector<KeyRow> rows = {
      {"F1.MENU.6.HEADING", Caption{"m_help"}, true},
      {"F1.MENU.6.GUIDE", Caption{"m_guide"}, true},
      {"F1.MENU.6.KEYS", Caption{"m_keys"}, true},
      {"F1.MENU.6.LOG", Caption{"m_sessionlog"}, true},
      {"F1.MENU.6.ABOUT", Caption{"m_about"}, true},
      {"F1.WELCOME.TEXT", Caption{"LabelWelcome"}, true},
      {"F1.WELCOME.DEMO.TEXT", Caption{"CommandDemo"}, true},
      {"F1.WELCOME.DEMO.TIP", Tooltip{"CommandDemo"}, true},
      {"F1.WELCOME.OPEN.TEXT", Caption{"CommandOpenFile"}, true},
      {"F1.WELCOME.OPEN.TIP", Tooltip{"CommandOpenFile"}, true},
      {"F1.WELCOME.NEW.TEXT", Caption{"CommandNewLibrary"}, true},
      {"F1.WELCOME.NEW.TIP", Tooltip{"CommandNewLibrary"}, true},
      {"HELP.GUIDE.MISSING", HelpField{&T::noGuide}},
      {"HELP.GUIDE.BROWSER", HelpField{&T::noBrowser}},
      {"HELP.COLUMN.COMMAND", HelpField{&T::command}},
      {"HELP.COLUMN.KEYS", HelpField{&T::keys}},
      {"HELP.COLUMN.EVENT", HelpField{&T::event}},
      {"HELP.COLUMN.PART", HelpField{&T::part}},
      {"HELP.COLUMN.VERSION", HelpField{&T::version}},
      {"HELP.COLUMN.LICENCE", HelpField{&T::licence}},
      {"HELP.COMPILER", HelpField{&T::compiler}},
      {"HELP.LOG.FILE", HelpField{&T::logFile}},
      {"HELP.LOG.OFF", HelpField{&T::noLogFile}},
      {"HELP.COPYALL", HelpField{&T::copyAll}},
      {"HELP.CLOSE", HelpField{&T::close}},
      {"HELP.OPENGUIDE", HelpField{&T::guide}},
  };
  return rows;
}

}  // namespace zentab::texts
