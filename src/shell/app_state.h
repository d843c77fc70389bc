// The program-wide state: one instance, alive from the login to the end of the process, passed to
// where it is needed. Screens read and write it; nothing of it is stored.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/chart/chart_pictures.h"
#include "platform/database/database_client.h"
#include "platform/printer/printer_port.h"
#include "platform/report/report_engine.h"
#include "platform/sheet/sheet_port.h"
#include "platform/way_back/kept_rows.h"

namespace tela {

class Display;
class Windows;

/// What stands in for the outside world. A test or an app fills it.
struct Platform {
  ConnectionFactory make_connection;
  std::function<Date()> today;
  std::function<std::unique_ptr<ReportEngine>()> make_report_engine;
  /// Writes a report as a PDF file; empty where nothing can paint one.
  PdfWriter write_pdf;
  PrinterPortOpener open_port;
  ChartPictures chart_pictures;
  /// The workbooks; empty where there is no way to them.
  std::unique_ptr<SheetPort> sheets;
  /// Keeps the rows that an action removes or rewrites.
  RowKeeper keep_rows;
};

struct AppState {
  AppState(const Platform& outside, Display& shown_on, Windows& open_windows)
      : platform(outside), display(shown_on), windows(open_windows) {}
  AppState(const AppState&) = delete;
  AppState& operator=(const AppState&) = delete;

  const Platform& platform;
  Display& display;
  Windows& windows;

  // Database objects.
  std::unique_ptr<Connection> Con;  ///< the one connection; set by ConnectDatabase, never reopened
  std::unique_ptr<Recordset> Rs;    ///< the shared recordset, empty between uses
  std::unique_ptr<Recordset> Rs2;   ///< a second one, for screens that walk two results at once

  // The action that runs now.
  bool is_cancelled = false;  ///< by the user; what it does on its way out is not cancelled again
  bool has_stored = false;    ///< a transaction of it is stored, so it is to be finished

  // The shop's identity, set by ConnectDatabase after a successful open.
  std::string ShopName;
  std::string ShopTitle;  ///< the report heading; not the same text as ShopName
  std::string ShopAddress;
  std::string DbName;
  std::string DbUser;
  std::string DbPassword;
  std::string ReportDir;  ///< without a final backslash

  /// Why the last ConnectDatabase failed, in the client's words; empty after a success.
  std::string connection_failure;

  // Loaded by the main window at start-up.
  std::string BillLine1, BillLine2, BillLine3;  ///< the trailer lines of a printed bill
  std::string CrReportPath;
  std::int16_t PrintNo = 0;  ///< the bill layout: 1 receipt, 2 wide, else none
  std::string PrinterType;
  std::string PortNo;
  std::string PrinterName;
  std::int16_t PrintTop = 0;  ///< blank lines ahead of a printed bill
  std::int16_t PrintEnd = 0;  ///< blank lines behind it

  // Hand-over values and scratch. No screen may rely on what another left in them, but for the two
  // bill numbers and the report file, which are read at once by the window that they are meant for.
  std::string FromDate, ToDate;
  std::int32_t SaleBillNo = 0;
  std::int32_t PurBillNo = 0;
  std::string ReportFile;

  // Report engine objects.
  std::unique_ptr<ReportEngine> CrApp;
  std::unique_ptr<Report> CrReport;
  std::string CrServer;  ///< never assigned: the local server

  /// The row that a fill, a staging loop or a double click stands on. A fill leaves it one behind
  /// the last row written. 16-bit by contract: the grid keeps it within kLastGridRow.
  int RowNo = 0;
  double ProfitSum = 0;  ///< the running sum of an average percentage
};

}  // namespace tela
