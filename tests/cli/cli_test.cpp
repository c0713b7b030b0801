// Runs the executable as a script would.
#include "cli/command_line.h"

namespace zentab::test {
namespace {

namespace fs = std::filesystem;
using std::string;

TEST_F(CommandLine, Tables) { RunCases("tables"); }
TEST_F(CommandLine, RenamesAndMovesKeepEveryOtherByte) {
  Write("lib.dat",
        "\xEF\xBB\xBF{\"Alpha\"\t(1.50;2) 001}\n{\"beta\"\t 000 junk}\r\n{\"\xC3\x84\"\t 000}\r"
        "{\"Delta\"\t(1;\xDC) 0}");
  RunCases("rename");
  EXPECT_EQ(BytesOf(Folder() / "lib.dat"),
            "\xEF\xBB\xBF{\"\xC5\x81\xC3\xB3\x64\xC5\xBA\"\t 000}\n{\"Gr\xF6\xDF\x65\"\t(1.50;2) "
            "001}\r\n{\"Delta\"\t(1;\xDC) 0}\r{\"beta\"\t 000 junk}");
}
TEST_F(CommandLine, ComparesAndMergesLibraries) {
  Write("a.dat",
        "{\"same\"\t(1.50;2) 001}\r\n{\"gone\"\t 000}\nnone\n{\"changed\"\t(1;2) "
        "000}\n{\"Name\"\t 000}\n{\"twice\"\t 001}\n{\"twice\"\t 002}");
  Write("b.dat",
        "{\"twice\"\t 001}\n{\"new\"\t 000}\n{\"same\"\t(1.5;2) 001}\n{\"changed\"\t(1;2) "
        "100}\n{\"name\"\t 000}\n{\"twice\"\t 002}");
  const std::string mark = "\xEF\xBB\xBF";
  Write(
      "base.dat",
      "{\"kept\"\t(1;1) 000}\n{\"both\"\t(1;1) 000}\n{\"mine\"\t(1;1) 000}\n{\"their\"\t(1;1) "
      "000}\n{\"lost\"\t(1;1) 000}\n{\"dropped\"\t(1;1) 000}\n{\"gone1\"\t 0}\n{\"gone2\"\t 0}\n");
  Write("ours.dat",
        mark +
            "{\"mine\"\t(1;2) 000}\n{\"kept\"\t(1;1.0) 000}\r\nrubbish\n{\"both\"\t(1;2) "
            "000}\n{\"their\"\t(1;1) 000}\n{\"lost\"\t(1;5) 000}\n{\"new1\"\t 0}\n{\"new2\"\t 1}\n"
            "{\"gone2\"\t 0}\n{\"\xC4\"\t 0}");
  Write("theirs.dat",
        "{\"kept\"\t(1;1) 000}\n{\"both\"\t(1;3) 000}\n{\"mine\"\t(1;1) "
        "000}\n{\"their\"\t(1;9) 000}\n{\"dropped\"\t(1;4) 000}\n{\"new2\"\t(1;2) 1}\n{\"new3\"\t "
        "0}\nx\n"
        "{\"gone1\"\t 0}\n{\"\xC3\x84\"\t 0}\n");
  RunCases("libraries");
  EXPECT_EQ(
      BytesOf(Folder() / "out.dat"),
      mark +
          "{\"mine\"\t(1;2) 000}\n{\"kept\"\t(1;1.0) 000}\r\nrubbish\n{\"both\"\t(1;2) "
          "000}\n{\"their\"\t(1;9) 000}\n{\"lost\"\t(1;5) 000}\n{\"new1\"\t 0}\n{\"new2\"\t 1}\n"
          "{\"\xC4\"\t 0}\r\n{\"new3\"\t 0}\n");
}
TEST_F(CommandLine, ExportedLibrariesComeBackAsTheSameBytes) {
  // What the program would not write so itself, and lines of every kind of end.
  string many;
  for (int point = 0; point < 30; ++point) many += "(" + std::to_string(point) + ";1)";
  const string library =
      "\xEF\xBB\xBF{\"plain\"\t(1.5;2)(1E-05;0.1) 112}\r\n{\"\xC3\x84\"\t(01.50;+2) "
      "0}\n{\"\xC4\x81\x81\"\t "
      "000 junk}\r{\"many\"\t" +
      many +
      " 000}\r\n{\"a(1;2)\"\t(;)(x;1E400) 9}\n{\"\"\t(1;2) 000}\n"
      "[[\"open\"(0.1234567890123456789;100000000000000000000) ";
  Write("all.dat", library);
  RunCases("export");
  EXPECT_EQ(BytesOf(Folder() / "back.dat"), library);
}
TEST_F(CommandLine, ReadsCurvesOfOtherPrograms) {
  Write("german.csv", "Strom [A];Ausl\xF6sezeit [ms]\r\n100,5;1.234,5\r\n200;500\r\n");
  Write("marked.csv", "\xEF\xBB\xBFkA,\"Time (cycles, 60 Hz)\"\n1.5,60\n2,30\n");
  Write("wide.csv", string("\xFE\xFF\0I\0/\0A\0;\xD8\x3D\xDC\0\xD8\0\xDC\0\0a\0\n\0"
                           "1\0;\0,\0"
                           "5",
                           30));
  Write("odd.csv", BytesOf(Folder() / "wide.csv") + 'x');
  Write("relay.tsv",
        "Relay X\n\nI/In\tTMS 0.1 [s]\tTMS 0.2 [s]\tRemark\n2\t1\t2\tx\n3\t0.5\t1\n4\t\t0.8\n");
  string many = "Load;Time\n";
  string lines;
  for (int row = 1; row <= 120; ++row) {
    many += std::to_string(row) + ",5;" + std::to_string(1000 - row * row / 20) + "\n";
    lines += "1,2\n";
  }
  Write("many.csv", many);
  for (int doubled = 0; doubled < 15; ++doubled) lines += lines;
  Write("long.csv", lines);
  RunCases("read");
  ASSERT_EQ(Run("\"" PROGRAM "\" read many.csv >out"), 0);
  const string thinned = BytesOf(Folder() / "out");
  EXPECT_EQ(std::count(thinned.begin(), thinned.end(), '\n'), 27);
  EXPECT_TRUE(thinned.starts_with("1.5\t1000\n"));
  EXPECT_NE(thinned.find("\n120.5\t280\n# deviation=0."), string::npos) << thinned;
}
TEST_F(CommandLine, Texts) { RunCases("texts"); }
TEST_F(CommandLine, TimeTests) {
  Write("equations.txt",
        "VALUE.MEAN.OVER {2}\nVALUE.EQUATION.2 {t0*2}\nFILTER.EQUATION.4 {t1+*}\n");
  Write("result.txt", "Test\n1\t3\t2500\t\n2\t5\t2000\t\n");
  fs::create_directory(Folder() / "empty");
  RunCases("time tests");
}
TEST_F(CommandLine, Graphs) { RunCases("graphs"); }
TEST_F(CommandLine, Curves) { RunCases("curves"); }
TEST_F(CommandLine, Clean) { RunCases("clean"); }
TEST_F(CommandLine, Eval) { RunCases("eval"); }
TEST_F(CommandLine, ListsItsFunctions) {
  ASSERT_EQ(Run("\"" PROGRAM "\" functions >out"), 0);
  const string text = BytesOf(Folder() / "out");
  EXPECT_NE(text.find("\nlogn\tx, base\tlogarithm to a base\tx > 0; base > 0, not 1\tlogn(1000,"),
            string::npos);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 116);
  ASSERT_EQ(Run("\"" PROGRAM "\" functions --format json >out"), 0);
  EXPECT_TRUE(
      BytesOf(Folder() / "out").starts_with(R"([{"keyword":"abs","arguments":"x","meaning":)"));
}
TEST_F(CommandLine, Usage) {
  RunCases("usage");
  // What the help of the program lists, every command explains.
  for (const char* const command :
       {"list", "show",     "add",    "update", "remove", "copy",     "text",  "rename",
        "move", "expand",   "entry",  "import", "grh",    "grh-read", "curve", "fit",
        "thin", "resample", "assess", "margin", "clean",  "eval",     "check"}) {
    ASSERT_EQ(Run("\"" PROGRAM "\" --help >out"), 0);
    EXPECT_NE(BytesOf(Folder() / "out").find(string("\n  ") + command), string::npos) << command;
    ASSERT_EQ(Run("\"" PROGRAM "\" " + string(command) + " --help >out"), 0);
    EXPECT_NE(BytesOf(Folder() / "out").find("Usage: zentab-cli " + string(command)), string::npos);
  }
}

TEST_F(CommandLine, AWriteThatIsRefusedLeavesTheFile) {
  const fs::path library = Write("lib.dat", "{\"A\"\t(1;2) 001}\n");
  fs::permissions(library,
                  fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  Write("in", "5\t6\n");
  for (const char* const command : {"add lib.dat B", "update lib.dat A", "remove lib.dat A"}) {
    EXPECT_EQ(Run("\"" PROGRAM "\" " + string(command) + " <in 2>err"), 1) << command;
  }
  EXPECT_EQ(BytesOf(library), "{\"A\"\t(1;2) 001}\n");
  EXPECT_EQ(Names(), (std::vector<string>{"err", "in", "lib.dat"}));
}

#ifndef _WIN32
TEST_F(CommandLine, WhatChangesNothingLeavesTheFileAlone) {
  Write("lib.dat", "{\"A\"\t 000}\r\n");
  for (const string command : {"rename lib.dat A A", "move lib.dat A 0"}) {
    EXPECT_EQ(Run("ls -i lib.dat >before && \"" PROGRAM "\" " + command +
                  " && ls -i lib.dat | cmp - before"),
              0)
        << command;
  }
}

// The scripts that the documentation shows, on the demo installation.
TEST_F(CommandLine, TheScriptsOfTheDocumentationRun) {
  fs::copy(DEMO_INSTALLATION, Folder(), fs::copy_options::recursive);
  const string path = fs::path(PROGRAM).parent_path().string();
  ASSERT_EQ(Run("PATH=\"" + path + ":$PATH\" sh \"" NIGHT_TEST_SCRIPT "\" . >out 2>err"), 0)
      << BytesOf(Folder() / "err");
  EXPECT_EQ(BytesOf(Folder() / "err"), "");
  EXPECT_NE(BytesOf(Folder() / "feeder12.grh").find("@A "), string::npos);
  ASSERT_EQ(Run("\"" PROGRAM "\" show night.dat \"Feeder 12\" >out"), 0);
  EXPECT_TRUE(
      BytesOf(Folder() / "out").starts_with("# Feeder 12\tms=0\tabsolute=0\tinstrument=1\n"));
  ASSERT_EQ(Run("PATH=\"" + path + ":$PATH\" sh \"" RELAY_CHECK_SCRIPT "\" . >out 2>err"), 0)
      << BytesOf(Folder() / "err");
  const string check = BytesOf(Folder() / "out");
  EXPECT_NE(check.find("ten.tsv:# deviation=4.2"), string::npos) << check;
  EXPECT_NE(check.find("\niec-a\t0.1998"), string::npos) << check;
  EXPECT_NE(check.find("\tpassed\n"), string::npos) << check;
}

TEST_F(CommandLine, ALimitOfTheFileSizeFailsTheWrite) {
  const string library = "{\"A\"\t" + string(2000, ' ') + "001}\n";
  Write("lib.dat", library);
  Write("in", "5\t6\n");
  EXPECT_EQ(Run("ulimit -f 1 && \"" PROGRAM "\" add lib.dat B <in 2>err"), 1);
  EXPECT_EQ(BytesOf(Folder() / "lib.dat"), library);
  EXPECT_EQ(Names(), (std::vector<string>{"err", "in", "lib.dat"}));
}

#ifdef __linux__
// The memory of the reading process begins with a page that nobody can read.
TEST_F(CommandLine, AFileThatCannotBeReadToItsEndIsNoShorterOne) {
  const string library = "{\"A\"\t(1;2)(3;4) 000}\r\n";
  for (const auto& [bad, why] : {std::pair<string, string>("/proc/self/mem", "Input/output error"),
                                 {"/dev/null", "Operation not supported"}}) {
    for (const string& arguments :
         {"list " + bad, "check " + bad, "show " + bad + " A", "update lib.dat A --points " + bad,
          "add lib.dat B --points " + bad, "copy " + bad + " lib.dat A", "text " + bad + " K",
          "entry " + bad + " T 1", "import " + bad + " --heading T", "grh-read --absolute " + bad,
          "import result.txt --heading T --catalogue " + bad, "update " + bad + " A",
          "remove " + bad + " A", "rename " + bad + " A B", "grh --absolute -o o.grh " + bad + " A",
          "thin --points 2 " + bad + " A"}) {
      Write("lib.dat", library);
      Write("result.txt", "T\n1\t1\t1000\t\n");
      EXPECT_EQ(Run("\"" PROGRAM "\" " + arguments + " >out 2>err"), 1) << arguments;
      EXPECT_EQ(BytesOf(Folder() / "lib.dat"), library) << arguments;
      const string line = arguments.starts_with("check /proc") ? ":1: " : ": ";
      EXPECT_EQ(BytesOf(Folder() / "err"), "zentab-cli: " + bad + line + why + '\n') << arguments;
    }
  }
}
#endif

TEST_F(CommandLine, StreamsThatFailAreNoEmptyInputAndNoSuccess) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  Write("lines", "1\n");
  for (const char* const command :
       {"add lib.dat X <&-", "add lib.dat X <.", "list - <&-", "clean <.", "eval --batch <.",
        "eval 1 >&-", "eval 1 >/dev/full", "eval --batch <lines >/dev/full"}) {
    EXPECT_EQ(Run("\"" PROGRAM "\" " + string(command) + " 2>err"), 1) << command;
    EXPECT_NE(BytesOf(Folder() / "err").find("standard "), string::npos) << command;
  }
  EXPECT_EQ(Run("\"" PROGRAM "\" --help >/dev/full"), 1);
  EXPECT_FALSE(fs::exists(Folder() / "lib.dat"));
}

TEST_F(CommandLine, WhatIsNoFileIsNotReplaced) {
  Write("result.txt", "1\t3\t2500\t\n");
  Write("behind.txt", "old");
  ASSERT_EQ(Run("mkfifo pipe && ln -s behind.txt link && ln -s /dev/null device"), 0);
  const string import = "timeout 10 \"" PROGRAM "\" import result.txt --heading= --trace ";
  for (const char* const trace : {"pipe", "device", "/dev/null"}) {
    EXPECT_EQ(Run(import + trace + " 2>err >out"), 1) << trace;
    EXPECT_NE(BytesOf(Folder() / "err").find("not a regular file"), string::npos) << trace;
  }
  EXPECT_TRUE(fs::is_fifo(Folder() / "pipe") && fs::is_character_file("/dev/null"));
  EXPECT_EQ(Run(import + "link >out"), 0);
  EXPECT_TRUE(fs::is_symlink(Folder() / "link"));
  EXPECT_TRUE(BytesOf(Folder() / "behind.txt").starts_with("Diff Type"));
  // A file that would become too large fails as on a full device.
  const string large = "{\"A\"\t(1;2) 001}\n" + string(5000, 'x');
  Write("lib.dat", large);
  EXPECT_EQ(Run("ulimit -f 1; \"" PROGRAM "\" remove lib.dat A 2>err"), 1);
  EXPECT_NE(BytesOf(Folder() / "err").find("lib.dat: not written: File too large"), string::npos);
  EXPECT_EQ(BytesOf(Folder() / "lib.dat"), large);
}

TEST_F(CommandLine, ATerminalIsNotSteeredByNames) {
  if (Run("script -V >out 2>&1") != 0) GTEST_SKIP() << "no script(1) here";
  Write("lib.dat", "{\"\x1B[31mA\xC2\x9B\xE2\x80\xAE\"\t 000}\n{\"\xC3\x84\"\t 000\n");
  const string program = "\"" PROGRAM "\" ";
  const auto shown = [&](const string& arguments) {
    EXPECT_EQ(Run("script -qc '" + program + arguments + "' /dev/null >out </dev/null"), 0);
    return BytesOf(Folder() / "out");
  };
  EXPECT_EQ(shown("list lib.dat"), "\\x1B[31mA\\x9B\\u202E\r\n\xC3\x84\r\n");
  EXPECT_EQ(shown("check lib.dat"), "lib.dat:2: the line does not end with }\r\n");
  EXPECT_EQ(shown("show lib.dat \"\x1B[1m\""),
            "zentab-cli: lib.dat: no entry \x27\\x1B[1m\x27\r\n");
  EXPECT_EQ(shown("\"\x1B[1m\"").find('\x1B'), string::npos);
  ASSERT_EQ(Run(program + "list lib.dat >out"), 0);
  EXPECT_TRUE(BytesOf(Folder() / "out").starts_with("\x1B[31mA\xC2\x9B")) << "as it is in a pipe";
}

TEST_F(CommandLine, AReaderThatLeavesEndsABatchAndLeavesNoTemporaryFile) {
  fs::create_directory(Folder() / "tmp");
  string library;
  for (int entry = 0; entry < 20'000; ++entry)
    library += "{\"N" + std::to_string(entry) + "\"\t 000}\n";
  Write("lib.dat", library);
  const string program = "\"" PROGRAM "\" ";
  ASSERT_EQ(Run("(TMPDIR=tmp " + program + "list - <lib.dat 2>err; echo $? >rc) | head -1 >out"),
            0);
  EXPECT_EQ(BytesOf(Folder() / "out") + BytesOf(Folder() / "rc") + BytesOf(Folder() / "err"),
            "N0\n1\n");
  EXPECT_TRUE(fs::is_empty(Folder() / "tmp"));
  ASSERT_EQ(Run("(yes 1 2>yes.err | " + program + "eval --batch; echo $? >rc) | head -1 >out"), 0);
  EXPECT_EQ(BytesOf(Folder() / "rc"), "1\n");
}

TEST_F(CommandLine, ABatchAnswersBeforeTheNextQuestionWhereThatIsWanted) {
  const string batch = "(\"" PROGRAM "\" eval --batch --line-buffered <asked >told &); ";
  ASSERT_EQ(Run("mkfifo asked told && " + batch +
                "exec 3>asked; echo 1+1 >&3; timeout 20 head -n 1 <told >out"),
            0);
  EXPECT_EQ(BytesOf(Folder() / "out"), "ok\t2\n");
}
#endif

}  // namespace
}  // namespace zentab::test
