// A process beside the test's own, on the same catalogue file.
//
//   till FILE NUMBER BILLS CHECKPOINT  writes BILLS bills (0: until standard input ends) and runs a
//                                      checkpoint after every CHECKPOINT of them (0: never); prints
//                                      their number
//   reports FILE ROUNDS                reads and stages so often, or (0) until standard input ends;
//                                      prints how often
//   stage FILE                         fills SalesPrint again and again; prints each round's number
//                                      once it is committed
//
// Ends with 1, and says why, on any failure and on any bill that is not whole.
#include <poll.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

#include "platform/embedded/embedded_catalogue.h"
#include "till.h"

namespace tela::testing {
namespace {

bool input_has_ended() {
  pollfd input{0, POLLIN, 0};
  return poll(&input, 1, 0) > 0;
}

int run_till(const std::string& file, int number, int bills, int checkpoint_every) {
  Till till(file, number);
  while (bills == 0 ? !input_has_ended() : till.bills() < bills) {
    till.write_bill();
    if (checkpoint_every != 0 && till.bills() % checkpoint_every == 0) till.checkpoint();
    if (bills == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  std::cout << till.bills() << '\n';
  return 0;
}

std::unique_ptr<Connection> connect(const std::string& file) {
  auto connection = make_embedded_connection(file);
  connection->open("Initial Catalog=TelaData");
  return connection;
}

constexpr const char* half_bills =
    "select SalesTemp.BillNo from SalesTemp left join Sales on SalesTemp.BillNo=Sales.BillNo "
    "group by SalesTemp.BillNo,SalesTemp.NetAmount "
    "having SalesTemp.NetAmount<>isnull(sum(Sales.Amount),0)";

constexpr const char* staging =
    "insert into SalesPrint select BillNo,sum(Amount) from Sales where BillDate='05/Jan/2024' "
    "group by BillNo";

int run_reports(const std::string& file, int most_rounds) {
  const auto connection = connect(file);
  int rounds = 0;
  for (; most_rounds == 0 ? !input_has_ended() : rounds < most_rounds; ++rounds) {
    if (!connection->execute(half_bills).rows.empty()) {
      std::cerr << "reports: saw half a bill\n";
      return 1;
    }
    for (const char* statement : {"delete from SalesPrint", staging}) {
      connection->begin_trans();
      connection->execute(statement);
      connection->commit_trans();
    }
  }
  std::cout << rounds << '\n';
  return 0;
}

int run_staging(const std::string& file) {
  const auto connection = connect(file);
  for (int round = 1;; ++round) {
    connection->begin_trans();
    connection->execute("delete from SalesPrint");
    for (int row = 0; row < 50; ++row)
      connection->execute("insert into SalesPrint values(" + std::to_string(round) + ",1)");
    connection->commit_trans();
    std::cout << round << std::endl;
  }
}

int run(int count, char** words) {
  const std::string task = count > 2 ? words[1] : "";
  if (task == "till" && count == 6)
    return run_till(words[2], std::atoi(words[3]), std::atoi(words[4]), std::atoi(words[5]));
  if (task == "reports" && count == 4) return run_reports(words[2], std::atoi(words[3]));
  if (task == "stage") return run_staging(words[2]);
  std::cerr << "usage: till FILE NUMBER BILLS CHECKPOINT | reports FILE ROUNDS | stage FILE\n";
  return 2;
}

}  // namespace
}  // namespace tela::testing

int main(int count, char** words) {
  try {
    return tela::testing::run(count, words);
  } catch (const std::exception& error) {
    std::cerr << words[1] << ": " << error.what() << '\n';
    return 1;
  }
}
