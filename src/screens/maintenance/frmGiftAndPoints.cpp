#include "screens/maintenance/frmGiftAndPoints.h"

#include <cmath>

#include "platform/text/number_text.h"
#include "platform/text/strings.h"
#include "shell/app_state.h"
#include "shell/database_gateway.h"
#include "shell/sql_value.h"

namespace tela {

namespace {

const std::string kPointsMask = "#######0.00";

GridColumns columns() {
  return {
      {"Code", 1000, field(0)},
      {"Gift Name", 4000, trimmed_field(1)},
      {"Points", 1000, number_field(2, kPointsMask)},
  };
}

std::string gift_sql(const std::string& code) {
  return "Select GiftCode,GiftName,NoOfPoints from GiftPoints where GiftCode=" + sql_number(code);
}

Refusal too_few_points() {
  return {[](const Form& form) { return Val(form.text("Text3")) < 1; },
          "Please Enter The Correct Points", Icon::critical, "Text3"};
}

// The catalogue would round it to the code of another gift.
Refusal broken_code() {
  return {[](const Form& form) { return std::fmod(Val(form.text("Text1")), 1) != 0; },
          "Please Enter The Correct Gift Code", Icon::critical, "Text1"};
}

}  // namespace

frmGiftAndPoints::frmGiftAndPoints(AppState& app)
    : Screen(app, "frmGiftAndPoints", "GIFTS AND POINTS",
             tab_order(text_box("Text1", "Gift Code").numeric().selected_on_focus(),
                       text_box("Text2", "Gift Name").selected_on_focus(),
                       text_box("Text3", "Points").numeric().selected_on_focus(),
                       button("cmdadd", "&ADD NEW"), button("cmdedit", "&EDIT"),
                       button("Command1", "&DELETE"), button("cmdSave", "&SAVE"),
                       button("cmdClose", "E&XIT"), grid("MSHF", 3))),
      grid_(form(), columns(), {.size = FillSize::blank_row_behind}) {
  key_walk({"Text1", "Text2", "Text3"});
  on_key("Text3", Key::enter, [this] {
    if (form().at("cmdSave").enabled) focus("cmdSave");
  });
  on_key("Text2", Key::up, [this] { focus("Text1"); });
  on_key("Text3", Key::up, [this] { focus("Text2"); });
  on_change("Text1", [this] { show_gift(); });
  on_leave("Text1", [this] { show_gift(); });
  on_press("cmdadd", [this] { start_adding(); });
  on_press("cmdedit", [this] { start_editing(); });
  on_press("cmdSave", [this] { save(); });
  on_press("Command1", [this] { remove(); });
  close_on("cmdClose");
}

void frmGiftAndPoints::load() {
  Screen::load();
  fill_grid();
}

void frmGiftAndPoints::fill_grid() {
  grid_.show(app(), "Select GiftCode,GiftName,NoOfPoints from GiftPoints order by GiftCode");
}

void frmGiftAndPoints::clear_all() {
  form().set_text("Text2", "");
  form().set_text("Text3", "");
}

frmGiftAndPoints::Gift frmGiftAndPoints::gift() const {
  return {form().text("Text1"), form().text("Text2"), form().text("Text3")};
}

void frmGiftAndPoints::show_gift() {
  const std::string& text = form().text("Text1");
  if (Val(text) <= 0) {
    if (trimmed(text).empty()) clear_all();
    return;
  }
  app().Rs2 = std::make_unique<Recordset>();
  const Recordset& rs = *app().Rs2;
  app().Rs2->open(gift_sql(text), *app().Con);
  if (rs.eof() || is_null(rs.field(0))) {
    clear_all();
  } else {
    form().set_text("Text2", cell_text(rs.field(1), trimmed_field(1)));
    form().set_text("Text3", cell_text(rs.field(2), number_field(2, kPointsMask)));
  }
  app().Rs2.reset();
}

void frmGiftAndPoints::start_adding() {
  form().at("cmdSave").enabled = true;
  form().at("cmdedit").enabled = true;
  const Recordset& rs = OpenRs(app(), "Select max(GiftCode) from GiftPoints");
  const auto* highest = rs.eof() ? nullptr : std::get_if<std::int64_t>(&rs.field(0));
  form().set_text("Text1", std::to_string(highest == nullptr ? 1 : *highest + 1));
  CloseRs(app());
  clear_all();
  form().at("cmdadd").enabled = false;
  focus("Text2");
}

void frmGiftAndPoints::start_editing() {
  form().at("cmdadd").enabled = true;
  form().at("cmdSave").enabled = true;
  form().at("cmdedit").enabled = false;
  form().set_text("Text1", "");
  focus("Text1");
}

std::string frmGiftAndPoints::insert_sql(const Gift& gift) {
  return "Insert into GiftPoints values(" + sql_number(gift.code) + "," +
         sql_text(trimmed(gift.name)) + "," + sql_number(gift.points) + ")";
}

std::string frmGiftAndPoints::update_sql(const Gift& gift) {
  return "Update GiftPoints set GiftName=" + sql_text(trimmed(gift.name)) +
         ",NoOfPoints=" + sql_number(gift.points) + " where GiftCode=" + sql_number(gift.code);
}

void frmGiftAndPoints::save() {
  if (refused(blank("Text1", "Please Enter The Gift Code")) ||
      refused(blank("Text2", "Please Enter The Gift Name")) ||
      refused(blank("Text3", "Please Enter The Gift Points")) || refused(too_few_points()) ||
      refused(broken_code()))
    return;
  if (!form().at("cmdadd").enabled) {
    if (!insert()) return;
  } else if (!form().at("cmdedit").enabled) {
    update();
  } else {
    tell("Please Select Add or Edit Options", Icon::information);
  }
  fill_grid();
}

// The check and the insert are one transaction, so that no other station takes the code in between.
bool frmGiftAndPoints::insert() {
  Transaction change(*app().Con);
  if (!OpenRs(app(), gift_sql(form().text("Text1"))).eof()) {
    tell("The Gift Code Is Already There", Icon::critical);
    focus("Text1");
    return false;
  }
  CloseRs(app());
  app().Con->execute(insert_sql(gift()));
  change.commit();
  tell("Records Added", Icon::information);
  end_mode("cmdadd");
  return true;
}

void frmGiftAndPoints::update() {
  Transaction change(*app().Con);
  app().Con->execute(update_sql(gift()));
  change.commit();
  tell("Records Modified", Icon::information);
  end_mode("cmdedit");
}

void frmGiftAndPoints::end_mode(const std::string& button) {
  clear_all();
  form().set_text("Text1", "");
  form().at(button).enabled = true;
  form().at("cmdSave").enabled = false;
}

void frmGiftAndPoints::remove() {
  // Without a name the code has found no gift.
  Refusal no_gift = blank("Text2", "Please Enter The Correct Gift Code");
  no_gift.focus = "Text1";
  if (refused(blank("Text1", "Please Enter The Gift Code")) || refused(no_gift)) return;
  if (Val(form().text("Text1")) <= 0) return;
  if (!ask("DO YOU WANT TO DELETE THE GIFT DETAILS- (OK To DELETE, Cancel To EXIT) ")) return;
  Transaction change(*app().Con);
  app().Con->execute("Delete from GiftPoints where GiftCode=" + sql_number(form().text("Text1")));
  change.commit();
  tell("Gift Details Deleted", Icon::information);
  fill_grid();
  clear_all();
  form().set_text("Text1", "");
  form().at("cmdedit").enabled = true;
}

}  // namespace tela
