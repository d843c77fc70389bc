// tela_office: the program's hand in LibreOffice. It alone links against the office, and runs as a
// process of its own, so that an office that is missing, breaks off or hangs costs one sheet and
// nothing else.
//
// usage: tela_office PIPE add WORKBOOK <CSV     adds a sheet with these cells to the open workbook,
//                                               which is opened, unseen, if it is not open
//        tela_office PIPE show WORKBOOK         shows the workbook to the user
//
// PIPE is where the office listens. Exit codes: see office_exit.h. The reason of a failure is on
// standard error.

#include <sys/prctl.h>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>

#include "apps/tela_office/open_office.h"
#include "apps/tela_office/workbook.h"
#include "platform/csv/csv_record.h"
#include "platform/sheet/office_exit.h"

namespace {

tela::SheetBlock read_block(std::istream& input) {
  tela::SheetBlock block;
  tela::CsvReader reader(input);
  for (tela::CsvRecord record; reader.read(record);) {
    auto& cells = block.emplace_back();
    for (tela::CsvField& field : record.fields) cells.push_back(std::move(field.text));
  }
  return block;
}

int run(const std::string& pipe, const std::string& command, const std::string& file) {
  const auto office = tela::connect_office(pipe);
  if (!office.is()) return tela::kOfficeNotListening;
  if (command == "add") {
    std::ios::sync_with_stdio(false);  // else each character of the input is a call
    const tela::SheetBlock block = read_block(std::cin);
    tela::Workbook::open(office, file).add_sheet(block);
  } else {
    tela::Workbook::find(office, file).show();
  }
  return tela::kOfficeDone;
}

int run_guarded(const std::string& pipe, const std::string& command, const std::string& file) {
  try {
    return run(pipe, command, file);
  } catch (const com::sun::star::uno::Exception& failure) {
    std::cerr << "LibreOffice broke off: " << tela::to_utf8(failure.Message) << '\n';
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
  }
  return tela::kOfficeFailed;
}

}  // namespace

int main(int argc, char** argv) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);  // nobody waits for the answer any longer
  const std::string command = argc == 4 ? argv[2] : "";
  if (command != "add" && command != "show") {
    std::cerr << "usage: tela_office PIPE add|show WORKBOOK\n";
    return tela::kOfficeFailed;
  }
  // What the connection still has to tidy up must neither delay nor change the answer.
  std::_Exit(run_guarded(argv[1], command, argv[3]));
}
