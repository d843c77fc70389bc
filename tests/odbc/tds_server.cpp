#include "odbc/tds_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "platform/odbc/wide_text.h"

namespace tela::testing {
namespace {

// Packet types of the protocol.
constexpr std::uint8_t kBatch = 0x01;
constexpr std::uint8_t kCall = 0x03;
constexpr std::uint8_t kResponse = 0x04;
constexpr std::uint8_t kAttention = 0x06;
constexpr std::uint8_t kTransaction = 0x0E;
constexpr std::uint8_t kLogin = 0x10;
constexpr std::uint8_t kPreLogin = 0x12;

constexpr std::size_t kHeader = 8;
constexpr std::size_t kPacket = 4096;
constexpr std::uint64_t kTransactionId = 7;

// Status bits of a done token.
constexpr std::uint16_t kMore = 0x01;
constexpr std::uint16_t kError = 0x02;
constexpr std::uint16_t kCount = 0x10;
constexpr std::uint16_t kCancelled = 0x20;

/// `value` in `bytes` bytes, the lowest first, as the protocol has all but its packet lengths.
std::string little(std::uint64_t value, std::size_t bytes) {
  std::string out;
  for (std::size_t i = 0; i < bytes; ++i) out += static_cast<char>((value >> (8 * i)) & 0xFFU);
  return out;
}

std::uint64_t unlittle(std::string_view bytes, std::size_t count) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < count && i < bytes.size(); ++i)
    value |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
  return value;
}

std::string wide_bytes(std::u16string_view text) {
  std::string out;
  for (const char16_t unit : text) out += little(unit, 2);
  return out;
}

std::string with_length(const std::string& value) {
  return little(value.size(), 1) + value;
}

std::string counted(std::u16string_view text, std::size_t length_bytes) {
  return little(text.size(), length_bytes) + wide_bytes(text);
}

std::string done_token(std::uint16_t status, std::uint64_t rows) {
  return '\xFD' + little(status, 2) + little(0, 2) + little(rows, 8);
}

std::string error_token(std::int32_t number, std::u16string_view words) {
  const std::string body = little(static_cast<std::uint32_t>(number), 4) + "\x01\x10" +
                           counted(words, 2) + counted(u"SHOP", 1) + counted(u"", 1) + little(1, 4);
  return '\xAA' + little(body.size(), 2) + body;
}

/// The notice that a transaction began (8), was committed (9) or rolled back (10).
std::string transaction_token(char change) {
  const std::string id = with_length(little(kTransactionId, 8));
  const std::string none = with_length("");
  const std::string body = change + (change == '\x08' ? id + none : none + id);
  return '\xE3' + little(body.size(), 2) + body;
}

std::string login_token() {
  const std::string body = "\x01\x74" + little(0, 2) + '\x04' + counted(u"Shop", 1) + little(16, 4);
  return '\xAD' + little(body.size(), 2) + body;
}

/// The answer to the pre-login: this version, no encryption.
std::string prelogin_answer() {
  using namespace std::string_literals;
  return "\x00\x00\x0B\x00\x06\x01\x00\x11\x00\x01\xFF"s + "\x10\x00\x00\x00\x00\x00"s + "\x02"s;
}

void send_message(int client, std::string_view body) {
  do {
    const std::size_t length = std::min(body.size(), kPacket - kHeader);
    const bool last = length == body.size();
    std::string packet = {static_cast<char>(kResponse),
                          static_cast<char>(last ? 1 : 0),
                          static_cast<char>((length + kHeader) >> 8U),
                          static_cast<char>((length + kHeader) & 0xFFU),
                          0,
                          0,
                          1,
                          0};
    packet.append(body.substr(0, length));
    body.remove_prefix(length);
    if (send(client, packet.data(), packet.size(), MSG_NOSIGNAL) < 0) return;
  } while (!body.empty());
}

bool read_exactly(int client, char* into, std::size_t count) {
  while (count > 0) {
    const ssize_t got = recv(client, into, count, 0);
    if (got <= 0) return false;
    into += got;
    count -= static_cast<std::size_t>(got);
  }
  return true;
}

/// The message behind the headers that precede it.
std::string_view without_headers(std::string_view body) {
  return body.substr(std::min<std::size_t>(unlittle(body, 4), body.size()));
}

std::string batch_text(std::string_view body) {
  std::u16string text;
  for (body = without_headers(body); body.size() >= 2; body.remove_prefix(2))
    text += static_cast<char16_t>(unlittle(body, 2));
  return odbc::to_utf8(text);
}

WireColumn column(std::string name, std::string type) {
  return {std::move(name), std::move(type)};
}

/// Code page and sorting of a text column, as a server in its default set-up has them.
std::string collation() {
  return {'\x09', '\x04', '\xD0', '\x00', '\x34'};
}

}  // namespace

namespace wire {

WireColumn integer(std::string name, std::uint8_t bytes) {
  return column(std::move(name), '\x26' + little(bytes, 1));
}
WireColumn floating(std::string name, std::uint8_t bytes) {
  return column(std::move(name), '\x6D' + little(bytes, 1));
}
WireColumn money(std::string name, std::uint8_t bytes) {
  return column(std::move(name), '\x6E' + little(bytes, 1));
}
WireColumn decimal(std::string name, std::uint8_t precision, std::uint8_t scale) {
  const std::uint8_t bytes = precision < 10 ? 5 : precision < 20 ? 9 : 17;
  return column(std::move(name),
                '\x6A' + little(bytes, 1) + little(precision, 1) + little(scale, 1));
}
WireColumn date(std::string name) {
  return column(std::move(name), "\x28");
}
WireColumn time(std::string name, std::uint8_t scale) {
  return column(std::move(name), '\x29' + little(scale, 1));
}
WireColumn datetime(std::string name) {
  return column(std::move(name), "\x6F\x08");
}
WireColumn nvarchar(std::string name) {
  return column(std::move(name), '\xE7' + little(200, 2) + collation());
}
WireColumn nvarchar_max(std::string name) {
  return column(std::move(name), '\xE7' + little(0xFFFF, 2) + collation());
}

std::string null() {
  return with_length("");
}
std::string number(std::int64_t value, std::uint8_t bytes) {
  return with_length(little(static_cast<std::uint64_t>(value), bytes));
}
std::string real(float value) {
  std::uint32_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return with_length(little(bits, 4));
}
std::string real(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return with_length(little(bits, 8));
}
std::string money_value(std::int64_t ten_thousandths, std::uint8_t bytes) {
  const auto value = static_cast<std::uint64_t>(ten_thousandths);
  if (bytes == 4) return with_length(little(value, 4));
  return with_length(little(value >> 32U, 4) + little(value, 4));
}
std::string decimal_value(std::int64_t unscaled) {
  const bool negative = unscaled < 0;
  const auto magnitude = static_cast<std::uint64_t>(negative ? -unscaled : unscaled);
  return with_length((negative ? '\x00' : '\x01') + little(magnitude, 8));
}
std::string date_value(int days_since_year_one) {
  return with_length(little(static_cast<std::uint64_t>(days_since_year_one), 3));
}
std::string time_value(std::uint64_t units, std::uint8_t bytes) {
  return with_length(little(units, bytes));
}
std::string datetime_value(std::int32_t days_since_1900, std::uint32_t three_hundredths) {
  return with_length(little(static_cast<std::uint32_t>(days_since_1900), 4) +
                     little(three_hundredths, 4));
}
std::string text(std::u16string_view value) {
  return little(value.size() * 2, 2) + wide_bytes(value);
}
std::string long_text(std::u16string_view value) {
  // In chunks, as a server streams a text of any length.
  constexpr std::size_t chunk = 1000;
  std::string out = little(value.size() * 2, 8);
  for (; !value.empty(); value.remove_prefix(std::min(chunk, value.size())))
    out += little(std::min(chunk, value.size()) * 2, 4) + wide_bytes(value.substr(0, chunk));
  return out + little(0, 4);
}
std::string null_text() {
  return little(0xFFFF, 2);
}

}  // namespace wire

Reply& Reply::columns(const std::vector<WireColumn>& columns) {
  bytes += '\x81' + little(columns.size(), 2);
  for (const WireColumn& each : columns)
    bytes += little(0, 4) + little(1, 2) + each.type + counted(odbc::to_utf16(each.name), 1);
  return *this;
}

Reply& Reply::row(const std::vector<std::string>& values) {
  bytes += '\xD1';
  for (const std::string& value : values) bytes += value;
  return *this;
}

Reply& Reply::done(std::uint64_t rows, bool more) {
  bytes += done_token(static_cast<std::uint16_t>(kCount | (more ? kMore : 0)), rows);
  return *this;
}

Reply& Reply::error(std::int32_t number, std::u16string_view words, bool more) {
  bytes += error_token(number, words) +
           done_token(static_cast<std::uint16_t>(kError | (more ? kMore : 0)), 0);
  return *this;
}

Reply& Reply::rolled_back() {
  bytes += transaction_token('\x0A');
  return *this;
}

Reply Reply::only(Ending ending) {
  Reply reply;
  reply.ending = ending;
  return reply;
}

TdsServer::TdsServer() {
  listener_ = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* any = reinterpret_cast<sockaddr*>(&address);
  socklen_t length = sizeof address;
  if (listener_ < 0 || bind(listener_, any, length) != 0 || listen(listener_, 4) != 0 ||
      getsockname(listener_, any, &length) != 0)
    throw std::runtime_error("No loopback port to listen on.");
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { serve(); });
}

TdsServer::~TdsServer() {
  stopping_ = true;
  shutdown(listener_, SHUT_RDWR);
  if (const int client = client_; client >= 0) shutdown(client, SHUT_RDWR);
  thread_.join();
  close(listener_);
}

std::string TdsServer::odbc_text(std::string_view password) const {
  return "DRIVER=libtdsodbc.so;SERVER=127.0.0.1;PORT=" + std::to_string(port_) +
         ";TDS_Version=7.4;UID=shop;PWD=" + std::string(password);
}

void TdsServer::on(std::string sql, Reply reply) {
  const std::lock_guard lock(mutex_);
  script_.insert_or_assign(std::move(sql), std::move(reply));
}

std::vector<std::string> TdsServer::received() const {
  const std::lock_guard lock(mutex_);
  return received_;
}

void TdsServer::note(std::string what) {
  const std::lock_guard lock(mutex_);
  received_.push_back(std::move(what));
}

void TdsServer::change_transaction(const std::string& change) {
  note(change);
  if (transactions_) transactions_(change);
}

void TdsServer::serve_from(std::function<Reply(const std::string&)> engine,
                           std::function<void(const std::string&)> transactions) {
  engine_ = std::move(engine);
  transactions_ = std::move(transactions);
}

void TdsServer::serve() {
  while (!stopping_) {
    const int client = accept(listener_, nullptr, nullptr);
    if (client < 0) return;
    const int at_once = 1;
    setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &at_once, sizeof at_once);
    client_ = client;
    deaf_ = false;
    converse(client);
    client_ = -1;
    close(client);
  }
}

void TdsServer::converse(int client) {
  Message message;
  while (!stopping_ && read_message(client, message))
    if (!answer(client, message)) return;
}

bool TdsServer::read_message(int client, Message& message) const {
  message.body.clear();
  while (true) {
    unsigned char header[kHeader];
    if (!read_exactly(client, reinterpret_cast<char*>(header), kHeader)) return false;
    message.type = header[0];
    const std::size_t length = (header[2] << 8U | header[3]) - kHeader;
    const std::size_t at = message.body.size();
    message.body.resize(at + length);
    if (!read_exactly(client, message.body.data() + at, length)) return false;
    if ((header[1] & 1U) != 0) return true;
  }
}

/// False when the server closes the connection.
bool TdsServer::answer(int client, const Message& message) {
  if (deaf_) return true;
  switch (message.type) {
    case kPreLogin:
      send_message(client, prelogin_answer());
      return true;
    case kLogin:
      send_message(client, refuses_ ? error_token(18456, u"Login failed for user 'shop'.") +
                                          done_token(kError, 0)
                                    : login_token() + done_token(0, 0));
      return !refuses_;
    case kAttention:
      send_message(client, done_token(kCancelled, 0));
      return true;
    case kTransaction:
      send_message(client, answer_transaction(without_headers(message.body)));
      return true;
    case kCall:
      note("call");
      send_message(client, done_token(0, 0));
      return true;
    default:
      break;
  }
  const std::string sql = message.type == kBatch ? batch_text(message.body) : "";
  note(sql);
  Reply reply;
  {
    const std::lock_guard lock(mutex_);
    const auto scripted = script_.find(sql);
    if (scripted != script_.end())
      reply = scripted->second;
    else if (engine_)
      reply = engine_(sql);
    else
      reply.done(0);
  }
  deaf_ = reply.ending == Reply::Ending::deaf;
  if (reply.ending == Reply::Ending::answer) send_message(client, reply.bytes);
  return reply.ending != Reply::Ending::hang_up;
}

std::string TdsServer::answer_transaction(std::string_view body) {
  constexpr std::uint64_t begin = 5;
  constexpr std::uint64_t commit = 7;
  const std::uint64_t request = unlittle(body, 2);
  if (request == begin) {
    change_transaction("begin");
    return transaction_token('\x08') + done_token(0, 0);
  }
  change_transaction(request == commit ? "commit" : "roll back");
  // Behind the name (none) stands a flag: begin the next transaction at once.
  const bool goes_on = body.size() > 3 && (body[3] & 1) != 0;
  if (goes_on && transactions_) transactions_("begin");
  return transaction_token(request == commit ? '\x09' : '\x0A') +
         (goes_on ? transaction_token('\x08') : "") + done_token(0, 0);
}

}  // namespace tela::testing
