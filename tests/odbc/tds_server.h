// A server of the tests that speaks just enough TDS 7.4, the protocol of SQL Server, for a real
// driver to log in, run batches and end transactions. It answers from a script, byte for byte as a
// server would, so that the tests see what the driver makes of every type, and what reaches the
// server.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace tela::testing {

/// A column as the protocol describes it: its name and the bytes of its type.
struct WireColumn {
  std::string name;
  std::string type;
};

namespace wire {
// The types, and their values. A null is the value `null()`, of every type but varchar.
WireColumn integer(std::string name, std::uint8_t bytes);
WireColumn floating(std::string name, std::uint8_t bytes);
WireColumn money(std::string name, std::uint8_t bytes);
WireColumn decimal(std::string name, std::uint8_t precision, std::uint8_t scale);
WireColumn date(std::string name);
WireColumn time(std::string name, std::uint8_t scale);
WireColumn datetime(std::string name);
WireColumn nvarchar(std::string name);
WireColumn nvarchar_max(std::string name);

std::string null();
std::string number(std::int64_t value, std::uint8_t bytes);
std::string real(float value);
std::string real(double value);
std::string money_value(std::int64_t ten_thousandths, std::uint8_t bytes);
std::string decimal_value(std::int64_t unscaled);
std::string date_value(int days_since_year_one);
std::string time_value(std::uint64_t units, std::uint8_t bytes);
std::string datetime_value(std::int32_t days_since_1900, std::uint32_t three_hundredths);
std::string text(std::u16string_view value);
std::string long_text(std::u16string_view value);
std::string null_text();
}  // namespace wire

/// What the server answers to one batch: results one after another, then the end it comes to.
class Reply {
 public:
  Reply& columns(const std::vector<WireColumn>& columns);
  Reply& row(const std::vector<std::string>& values);
  /// Ends a statement of the batch: `rows` it returned or changed.
  Reply& done(std::uint64_t rows, bool more = false);
  Reply& error(std::int32_t number, std::u16string_view words, bool more = false);
  /// The server rolled the open transaction back by itself.
  Reply& rolled_back();

  /// What follows the bytes: nothing until the client cancels; nothing even then; the connection is
  /// closed.
  enum class Ending { answer, busy, deaf, hang_up };
  static Reply only(Ending ending);

  Ending ending = Ending::answer;
  std::string bytes;
};

class TdsServer {
 public:
  TdsServer();
  ~TdsServer();
  TdsServer(const TdsServer&) = delete;
  TdsServer& operator=(const TdsServer&) = delete;

  /// A connection string for the FreeTDS driver and this server.
  std::string odbc_text(std::string_view password = "s3cret") const;
  int port() const { return port_; }

  /// The answer to the batch `sql`. Unscripted batches are answered with "done".
  void on(std::string sql, Reply reply);
  void refuse_logins() { refuses_ = true; }
  /// Puts an engine behind the server, which answers the batches that are not scripted, and is told
  /// of each "begin", "commit" and "roll back". Called on the server's own thread.
  void serve_from(std::function<Reply(const std::string& sql)> engine,
                  std::function<void(const std::string& change)> transactions);
  /// What arrived since the login: the text of each batch; "begin", "commit" and "roll back" for a
  /// transaction request; "call" for a batch wrapped in a procedure.
  std::vector<std::string> received() const;

 private:
  struct Message {
    std::uint8_t type = 0;
    std::string body;
  };

  void serve();
  void converse(int client);
  bool read_message(int client, Message& message) const;
  bool answer(int client, const Message& message);
  std::string answer_transaction(std::string_view body);
  void note(std::string what);
  void change_transaction(const std::string& change);

  int listener_ = -1;
  int port_ = 0;
  std::atomic<int> client_ = -1;
  std::atomic<bool> stopping_ = false;
  std::atomic<bool> refuses_ = false;
  bool deaf_ = false;
  mutable std::mutex mutex_;
  std::map<std::string, Reply, std::less<>> script_;
  std::vector<std::string> received_;
  std::function<Reply(const std::string&)> engine_;
  std::function<void(const std::string&)> transactions_;
  std::thread thread_;
};

}  // namespace tela::testing
