#include "screens/bill_sales/bills_between.h"

#include <utility>

#include "platform/text/number_text.h"
#include "shell/sql_value.h"

namespace tela::bills_between {

namespace {

Refusal below_one(const std::string& box, const std::string& text) {
  return {[box](const Form& form) { return Val(form.text(box)) < 1; }, text, Icon::information};
}

Refusal falling(const std::string& text, const std::string& focus = {}) {
  return {[](const Form& form) { return Val(form.text("Text2")) < Val(form.text("Text1")); }, text,
          Icon::critical, focus};
}

}  // namespace

Control limit(std::string name, std::string label) {
  return text_box(std::move(name), std::move(label)).numeric().selected_on_focus();
}

std::vector<Refusal> refusals(const std::string& missing, const std::string& reversed) {
  return {below_one("Text1", missing), below_one("Text2", missing), falling(reversed)};
}

std::string select() {
  return "select billno,billdate,BillTime,NetAmount,DiscAmount,Total,(case when BillType IN "
         "('CASH/CREDIT','POINTS SALES') then Total-(CardPaid+MealsPaid+MobilePay+PointsUsed) else "
         "CashPaid end),str(CardPaid,8,2),str(MealsPaid,8,2),MobilePay,STR(PointsUsed,8,2) from "
         "salestemp where ";
}

std::array<std::string, 4> boxes() {
  return {"Text3", "Text4", "Text5", "Text6"};
}

BillPreview preview() {
  return {
      .refusals = {falling("The Start Bill Is Greater Than The End Bill", "Text1")},
      .question = "DO YOU WANT TO PRINT THE RECORD - (OK To PRINT, Cancel To EXIT) ",
      .asks_last = true,
      .clear = "Delete from BilltoBillRep",
      .insert = "insert into BilltoBillRep values(",
      .values = [](const BillInputs& inputs, const GridRow& row) -> std::vector<std::string> {
        return {sql_number(inputs.first), sql_number(inputs.last), row.number(0), row.date(1),
                row.numbers(3, 10)};
      },
      .report_file = "BilltoBillPri.rpt",
      .report_query = "SELECT * FROM BilltoBillRep",
  };
}

}  // namespace tela::bills_between
