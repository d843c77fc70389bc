// Sheets in workbooks that a real LibreOffice has open, read back through it.
#include <signal.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "platform/process/program_run.h"
#include "sheet/office/office_test.h"

namespace tela::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

const SheetBlock kBlock = {{"S.No.", "Bill No", "", "SUPPLIER NAME"},
                           {"1", "00123", "", "RAO & SONS, \"GUNTUR\""},
                           {},
                           {"=1+1", "1E5", "12.50", "05/Jan/2024"},
                           {"'quoted", " blank ", "TRUE", "తెలుగు ₹"},
                           {"two\nlines", "18%", "-", "#N/A"}};
const std::string kRead =
    "S.No.,Bill No,,SUPPLIER NAME\n"
    "1,00123,,\"RAO & SONS, \"\"GUNTUR\"\"\"\n"
    ",,,\n"
    "=1+1,1E5,12.50,05/Jan/2024\n"
    "'quoted, blank ,TRUE,తెలుగు ₹\n"
    "\"two\nlines\",18%,-,#N/A\n";
const std::string kEmptySheet = "Sheet1:\n\n";

class OfficeSheets : public OfficeTest {};

TEST_F(OfficeSheets, EveryCellArrivesAsTheTextItIs) {
  const std::string workbook = put_workbook("SGST");
  const std::string on_disk = file_text(file_of(workbook));
  const auto sheets = this->sheets();
  sheets->add_sheet(workbook, kBlock);
  sheets->show(workbook);
  EXPECT_EQ(read_back(workbook), kEmptySheet + "Sheet2:\n" + kRead);
  EXPECT_EQ(file_text(file_of(workbook)), on_disk);
}

TEST_F(OfficeSheets, AFurtherExportAddsASheetToTheOpenWorkbook) {
  const std::string workbook = put_workbook("SGST");
  const std::string other = put_workbook("IGST");
  sheets()->add_sheet(workbook, kBlock);
  const auto office = running("soffice.bin");
  EXPECT_EQ(office.size(), 1U) << "the office outlives the program that started it";
  sheets()->add_sheet(other, {{"other"}});
  sheets()->add_sheet(workbook, {{"one"}, {""}, {"2"}});
  EXPECT_EQ(read_back(workbook), kEmptySheet + "Sheet2:\n" + kRead + "Sheet3:\none\n\n2\n");
  EXPECT_EQ(read_back(other), kEmptySheet + "Sheet2:\nother\n");
  EXPECT_EQ(running("soffice.bin"), office);
}

TEST_F(OfficeSheets, AnOfficeThatRunsAlreadyIsUsed) {
  const std::string workbook = put_workbook("SGST");
  const ProgramCall call{{"soffice", "--headless", "--norestore", "--nodefault",
                          "--accept=pipe,name=" + pipe_ + "-users;urp", settings().options[0]}};
  ProgramRun users(call);
  wait_for_office(pipe_ + "-users");
  const auto office = running("soffice.bin");
  sheets()->add_sheet(workbook, kBlock);
  EXPECT_EQ(read_back(workbook), kEmptySheet + "Sheet2:\n" + kRead);
  EXPECT_EQ(running("soffice.bin"), office);
  EXPECT_EQ(users.exit_code(), std::nullopt);
}

TEST_F(OfficeSheets, AWorkbookThatIsOpenElsewhereIsRefused) {
  const std::string workbook = put_workbook("SGST");
  sheets()->add_sheet(workbook, kBlock);
  OfficeSettings elsewhere = settings();
  elsewhere.pipe += "-elsewhere";
  elsewhere.options = {"-env:UserInstallation=file://" + (folder_ / "elsewhere").string()};
  const auto theirs = make_office_sheets(paths_, elsewhere);
  const std::string error = error_of([&] { theirs->add_sheet(workbook, {{"late"}}); });
  EXPECT_NE(error.find("open elsewhere"), std::string::npos) << error;
  EXPECT_TRUE(all_gone("elsewhere")) << "what was started for it is ended";
  EXPECT_EQ(read_back(workbook), kEmptySheet + "Sheet2:\n" + kRead);
}

TEST_F(OfficeSheets, AnOfficeThatHangsIsNotWaitedForAndKeepsItsSheets) {
  const std::string workbook = put_workbook("SGST");
  sheets()->add_sheet(workbook, kBlock);
  const auto office = running("soffice.bin");
  OfficeSettings hasty = settings();
  hasty.limit = 1s;
  const auto sheets = make_office_sheets(paths_, hasty);
  signal_office(SIGSTOP);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(error_of([&] { sheets->add_sheet(workbook, kBlock); }),
            "LibreOffice did not answer within 1 seconds.");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s);
  EXPECT_TRUE(all_gone("tela_office"));
  signal_office(SIGCONT);
  EXPECT_EQ(running("soffice.bin"), office);
  EXPECT_EQ(read_back(workbook), kEmptySheet + "Sheet2:\n" + kRead);
}

TEST_F(OfficeSheets, AnOfficeThatIsKilledInMidExportEndsTheExport) {
  const std::string workbook = put_workbook("SGST");
  const auto sheets = this->sheets();
  sheets->add_sheet(workbook, kBlock);
  signal_office(SIGSTOP);  // so that the export surely stands in its middle
  std::thread killer([&] {
    while (running("tela_office").empty()) std::this_thread::sleep_for(10ms);
    std::this_thread::sleep_for(300ms);
    for (const pid_t id : running("soffice")) kill(id, SIGKILL);
  });
  const std::string error = error_of([&] { sheets->add_sheet(workbook, kBlock); });
  killer.join();
  EXPECT_NE(error, "");
  EXPECT_EQ(error.find("did not answer"), std::string::npos) << error;
  EXPECT_TRUE(all_gone("tela_office"));
  sheets->add_sheet(workbook, {{"again"}});
  EXPECT_EQ(read_back(workbook), kEmptySheet + "Sheet2:\nagain\n");
}

TEST_F(OfficeSheets, WithoutTheWorkbookNoOfficeIsStarted) {
  const std::string error =
      error_of([&] { sheets()->add_sheet("D:\\Tela_Supermarket\\SGST.xls", kBlock); });
  EXPECT_NE(error.find("There is no file"), std::string::npos) << error;
  EXPECT_TRUE(all_gone());
}

// An office that is a script, for what a real one does too rarely; and in the second test one in
// the place of the program that speaks to it.
class ScriptedOffice : public OfficeTest {
 protected:
  fs::path script(const std::string& name, const std::string& text) {
    const fs::path program = folder_ / name;
    fs::create_directories(program.parent_path());
    std::ofstream(program) << "#!/bin/sh\n" << text << '\n';
    fs::permissions(program, fs::perms::owner_all);
    return program;
  }

  OfficeSettings settings_of(const std::string& office) {
    script("office/types/offapi.rdb", "the sign of an office");
    OfficeSettings settings = this->settings();
    settings.office = script("office/soffice", office).string();
    settings.limit = 1s;
    return settings;
  }

  std::string export_error(const OfficeSettings& settings) {
    return error_of(
        [&] { make_office_sheets(paths_, settings)->add_sheet(put_workbook("SGST"), kBlock); });
  }
};

TEST_F(ScriptedOffice, WhereThereIsNoneTheUserIsToldSo) {
  OfficeSettings settings = this->settings();
  settings.office = (folder_ / "nowhere").string();
  EXPECT_EQ(export_error(settings), "LibreOffice is not installed.");
  settings.office = "no-such-office";
  EXPECT_EQ(export_error(settings), "LibreOffice is not installed.");
  settings.office = "sh";
  EXPECT_NE(export_error(settings).find("is no LibreOffice"), std::string::npos);
  settings.link.clear();
  EXPECT_EQ(export_error(settings), "This program was built without LibreOffice.");
}

TEST_F(ScriptedOffice, OneThatWasStartedInVainIsEnded) {
  OfficeSettings settings = settings_of("sleep 1000 & sleep 1000");
  settings.link = script("link", "exit 3");  // no office listens
  EXPECT_EQ(export_error(settings), "LibreOffice did not answer within 1 seconds.");
  EXPECT_TRUE(all_gone());

  settings = settings_of("echo 'no desktop' >&2; exit 1");
  settings.link = script("link", "exit 3");
  EXPECT_EQ(export_error(settings), "LibreOffice does not start. no desktop");

  settings.link = script("link", "echo 'libuno_sal.so.3: not found' >&2; exit 127");
  EXPECT_EQ(export_error(settings), "libuno_sal.so.3: not found");
}

}  // namespace
}  // namespace tela::testing
