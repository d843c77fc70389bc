#include "screens/purchase/goods_received_note.h"

#include <utility>

#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "shell/database_gateway.h"
#include "shell/failure.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

const std::string kMoney = "########0.00";

// The sums of the note, in the order of the statement.
std::vector<RowBox> sum_boxes(const NoteViewer& viewer) {
  std::vector<RowBox> boxes = {
      {"tSaleValue", "Purchase Value ", number_field(6, kMoney)},
      {"tSchemeAmount", "Total Discount ", number_field(7, kMoney)},
      {"tAfterDiscount", "After Discount", number_field(8, kMoney)},
      {"tTotalCGST_Amt", "Total CGST", number_field(9, kMoney)},
      {"tTotalSGST_Amt", "Total SGST", number_field(10, kMoney)},
      {"tTotalIGST_Amt", "Total IGST", number_field(11, kMoney)},
      {"LTotal", "Amount ", number_field(12, kMoney)},
      {"TSdiscper", "Cash Discount % ", number_field(13, kMoney)},
      {"TsDiscAmt", "Discount Amt  ", number_field(14, kMoney)},
      {"LNetrate", "NET AMOUNT ", number_field(15, kMoney)},
  };
  if (!viewer.cess_field.empty())
    boxes.push_back({"tCessAmt", "CESS Amount ", number_field(16, kMoney)});
  return boxes;
}

// All boxes that show a field of the header. Writing the supplier's code brings in the supplier.
std::vector<RowBox> header_boxes(const NoteViewer& viewer) {
  std::vector<RowBox> boxes = {
      {"lInternalNo", "", field(0)},
      {"Text1", " BILL  No.", field(2)},
      {"tcustcode", "Code", field(4)},
      {"lblTotalQty", "TOTAL QTY.  ", number_field(5, "#######0.00")},
  };
  for (RowBox& box : sum_boxes(viewer)) boxes.push_back(std::move(box));
  return boxes;
}

// The boxes of the supplier, from the statement of the look-up.
const std::vector<RowBox>& supplier_boxes() {
  static const std::vector<RowBox> kBoxes = {
      {"tcustname", "Supplier Name", trimmed_field(1)},
      {"lGLCode", "", field(2)},
      {"tMobileNo", "CELL NUMBER", field(3)},
      {"tGST_Type", "GST Type", trimmed_field(4)},
      {"tCreditDays", "Cr Days", field(5)},
      {"tGstNo", "GST NUMBER", trimmed_field(6)},
  };
  return kBoxes;
}

Control shown_box(const RowBox& box) {
  Control control = text_box(box.name, box.label);
  control.locked = true;
  return control;
}

Control hidden(Control control) {
  control.visible = false;
  return control;
}

std::vector<Control> supplier_controls() {
  std::vector<Control> all = tab_order(text_box("tcustcode", "Code").selected_on_focus());
  for (const RowBox& box : supplier_boxes())
    all.push_back(box.name.starts_with('l') ? label(box.name) : shown_box(box));
  return all;
}

std::vector<Control> sum_controls(const NoteViewer& viewer) {
  std::vector<Control> all = tab_order(label("lblTotalQty", "TOTAL QTY.  ").with_text("0.00"));
  for (const RowBox& box : sum_boxes(viewer)) all.push_back(total_box(box.name, box.label));
  all.push_back(total_box("tTotalMargin", "MARGIN "));
  return all;
}

std::vector<Control> controls(NoteViewer& viewer) {
  std::vector<Control> all = tab_order(
      text_box("tGrnNo", " GRN No. ").numeric().selected_on_focus(), button("cmdView", "&VIEW"),
      button("cmdNext", "&NEXT"), button("Command1", "PREVIO&US"));
  append(all, std::move(viewer.buttons));
  append(all, tab_order(button("cmdClose", "&CLOSE"), button("cmdEnter", "&Enter")));
  append(all, group("BILL", tab_order(text_box("Text1", " BILL  No."),
                                      date_picker("DTPicker1", "DATE :"), label("lInternalNo"))));
  append(all, group("SUPPLIER", supplier_controls()));
  all.push_back(grid("MSHF", 19));
  append(all, group("SUMS", sum_controls(viewer)));
  append(all, tab_order(hidden(label("lTotalRows").with_text("1")), hidden(text_box("tSerialNo")),
                        hidden(text_box("tHSN")), hidden(text_box("TStock"))));
  return all;
}

GridColumns grid_columns() {
  return {
      {"No.", 500, row_number()},
      {"CODE", 700, field(0)},
      {"ITEM NAME", 3400, trimmed_field(1)},
      {"QTY.", 900, number_field(2, kMoney)},
      {"F_Qty", 800, number_field(3, kMoney)},
      {"MRP", 1000, number_field(4, kMoney)},
      {"RATE", 1000, number_field(5, kMoney)},
      {"DISC%", 800, number_field(6, kMoney)},
      {"Disc Amt", 1000, number_field(7, kMoney)},
      {"AMOUNT", 1000, number_field(8, kMoney)},
      {"CGST %", 800, number_field(9, kMoney)},
      {"CGST Amt", 1100, number_field(10, kMoney)},
      {"SGST %", 800, number_field(11, kMoney)},
      {"SGST Amt", 1100, number_field(12, kMoney)},
      {"IGST %", 800, number_field(13, kMoney)},
      {"IGST Amt", 1000, number_field(14, kMoney)},
      {"TOTAL", 1100, number_field(15, kMoney)},
      {"Margin %", 1100, number_field(16, kMoney)},
      {"", 10, trimmed_field(17)},  // the HSN code is carried, not read
  };
}

}  // namespace

GoodsReceivedNote::GoodsReceivedNote(AppState& app, NoteViewer viewer)
    : Screen(app, viewer.screen, viewer.caption, controls(viewer)),
      viewer_(std::move(viewer)),
      header_(header_boxes(viewer_)),
      grid_(form(), grid_columns(), {.bands = viewer_.bands, .size = FillSize::blank_row_behind}) {
  on_key("tGrnNo", Key::enter, [this] { view(); });
  on_key("DTPicker1", Key::enter, [this] { focus("tcustcode"); });
  on_change("tcustcode", [this] { show_supplier(); });
  on_leave("tcustcode", [this] { show_supplier(); });
  on_press("cmdView", [this] { view(); });
  on_press("cmdNext", [this] { step(1); });
  on_press("Command1", [this] { step(-1); });
  close_on("cmdClose");
}

std::string GoodsReceivedNote::header_sql(const NoteViewer& viewer, const std::string& note) {
  return "Select InternalNo,GrnNo,BillNo,BillDate,Scode,TotalQty,TotalValue,TotalDiscount,"
         "AfterDiscount,TotalCGST,TotalSGST,TotalIGST,GrossAmount,SplDiscount,SplDiscAmt,"
         "NetAmount" +
         viewer.cess_field + " from PurchaseTemp where GrnNo=" + sql_number(note);
}

std::string GoodsReceivedNote::lines_sql(const NoteViewer& viewer, const std::string& note) {
  return "Select iCODE,iName,Qty,FQty,mrp,PurRate,DiscPer,DiscAmt,Amount,iCGst,iCGstAmt,iSGst,"
         "iSGstAmt,iIGst,iIGstAmt,Total,MarginPer,iHSNcode from Purchase where GrnNo=" +
         sql_number(note) + viewer.lines_order;
}

void GoodsReceivedNote::load() {
  Screen::load();
  form().set_text("tGrnNo", std::to_string(app().PurBillNo));
  view();
}

void GoodsReceivedNote::view() {
  guarded([this] { read_note(); },
          [this](const std::runtime_error&) {
            tell("NO RECORDS FOUND IN THIS GRN NUMBER", Icon::critical);
            grid_.clear();
            grid_.RowHeading();
            ClearAllT();
          });
}

void GoodsReceivedNote::read_note() {
  read_header();
  read_lines();
  AverageMargin();
  read_credit_days();
}

// A number without a header has no first field to read, and that failure ends the view.
void GoodsReceivedNote::read_header() {
  const Recordset& rs = OpenRs(app(), header_sql(viewer_, form().text("tGrnNo")));
  fill_boxes(form(), header_, rs);
  if (const auto* day = std::get_if<Date>(&rs.field(3))) form().set_date("DTPicker1", *day);
  if (Val(form().text("tcustcode")) == 0) clear_supplier();
  CloseRs(app());
}

void GoodsReceivedNote::read_lines() {
  grid_.show(app(), lines_sql(viewer_, form().text("tGrnNo")), [this](const Recordset& rs) {
    if (rs.record_count() > 0) form().set_text("lTotalRows", std::to_string(rs.record_count() + 1));
  });
}

void GoodsReceivedNote::read_credit_days() {
  const Recordset& rs = OpenRs(
      app(), "Select CreditDays from SUPPLIER where Scode=" + sql_number(form().text("tcustcode")));
  if (!rs.eof() && !is_null(rs.field(0))) form().set_text("tCreditDays", field_text(rs.field(0)));
  CloseRs(app());
}

void GoodsReceivedNote::show_supplier() {
  const std::string& code = form().text("tcustcode");
  if (viewer_.is_supplier(Val(code)))
    guarded([this] { read_supplier(); }, [this](const std::runtime_error&) { clear_supplier(); });
  else if (code.empty())
    clear_supplier();
}

// On the second recordset, since the header may still be open on the first.
void GoodsReceivedNote::read_supplier() {
  app().Rs2 = std::make_unique<Recordset>();
  app().Rs2->open(
      "select scode'CODE',sname'NAME',GLCode,mobile,TaxType,CreditDays,GstNo from "
      "supplier where scode=" +
          sql_number(form().text("tcustcode")),
      *app().Con);
  fill_boxes(form(), supplier_boxes(), *app().Rs2);
  app().Rs2.reset();
}

void GoodsReceivedNote::clear_supplier() {
  app().Rs2.reset();
  for (const RowBox& box : supplier_boxes()) form().set_text(box.name, "");
}

// Over all lines, those of a margin of 0 too. A note without lines divides by the lines of the note
// before it, or by nothing at all; it shows 0 either way.
void GoodsReceivedNote::AverageMargin() {
  std::string margin = "0";
  for (int row = 1; row < grid_.cells().Rows(); ++row)
    if (grid_.number(row, 1) > 0)
      margin = format_number(Val(margin) + grid_.number(row, 17), "#######0.00");
  const double lines = Val(form().text("lTotalRows")) - 1;
  form().set_text("tTotalMargin",
                  lines > 0 ? format_number(Val(margin) / lines, "######0.00") : margin);
}

void GoodsReceivedNote::step(int by) {
  form().set_text("tGrnNo", plain_number(Val(form().text("tGrnNo")) + by));
  view();
}

// The number that was not found stays, so that the walk goes on from it; so do cess and margin.
void GoodsReceivedNote::ClearAllT() {
  for (const RowBox& box : header_)
    if (box.name != "tCessAmt") form().set_text(box.name, "");
  form().set_date("DTPicker1", app().platform.today());
}

}  // namespace tela
