#include "platform/odbc/diagnosis.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace tela::odbc {
namespace {

using Kind = DatabaseError::Kind;

/// What can go wrong, the most telling first: of several records the first of these is reported.
enum class Fault {
  login_refused,
  no_catalogue,
  no_driver,
  link_lost,
  timed_out,
  deadlock,
  locked,
  unreachable,
  denied,
  unknown_name,
  value,
  storage,
  syntax,
  other,
  notice,
};

struct NativeFault {
  int code;
  Fault fault;
};

/// SQL Server's own error numbers, where they say more than the SQLSTATE that a driver makes of
/// them.
constexpr std::array kNativeFaults = {
    NativeFault{102, Fault::syntax},          NativeFault{103, Fault::syntax},
    NativeFault{105, Fault::syntax},          NativeFault{156, Fault::syntax},
    NativeFault{170, Fault::syntax},          NativeFault{195, Fault::unknown_name},
    NativeFault{207, Fault::unknown_name},    NativeFault{208, Fault::unknown_name},
    NativeFault{220, Fault::value},           NativeFault{229, Fault::denied},
    NativeFault{230, Fault::denied},          NativeFault{232, Fault::value},
    NativeFault{241, Fault::value},           NativeFault{242, Fault::value},
    NativeFault{244, Fault::value},           NativeFault{245, Fault::value},
    NativeFault{248, Fault::value},           NativeFault{262, Fault::denied},
    NativeFault{295, Fault::value},           NativeFault{515, Fault::value},
    NativeFault{547, Fault::value},           NativeFault{823, Fault::storage},
    NativeFault{824, Fault::storage},         NativeFault{1101, Fault::storage},
    NativeFault{1105, Fault::storage},        NativeFault{1205, Fault::deadlock},
    NativeFault{1222, Fault::locked},         NativeFault{2601, Fault::value},
    NativeFault{2627, Fault::value},          NativeFault{2628, Fault::value},
    NativeFault{2812, Fault::unknown_name},   NativeFault{3701, Fault::unknown_name},
    NativeFault{3906, Fault::storage},        NativeFault{4060, Fault::no_catalogue},
    NativeFault{4121, Fault::unknown_name},   NativeFault{8114, Fault::value},
    NativeFault{8115, Fault::value},          NativeFault{8134, Fault::value},
    NativeFault{8152, Fault::value},          NativeFault{9002, Fault::storage},
    NativeFault{18452, Fault::login_refused}, NativeFault{18456, Fault::login_refused},
    NativeFault{18470, Fault::login_refused}, NativeFault{18486, Fault::login_refused},
    NativeFault{18487, Fault::login_refused}, NativeFault{18488, Fault::login_refused},
};

struct StateFault {
  std::string_view prefix;
  Fault fault;
};

/// SQLSTATEs by their beginning, the longer before the shorter.
constexpr std::array kStateFaults = {
    StateFault{"08001", Fault::unreachable}, StateFault{"08", Fault::link_lost},
    StateFault{"28", Fault::login_refused},  StateFault{"HYT", Fault::timed_out},
    StateFault{"40001", Fault::deadlock},    StateFault{"42S", Fault::unknown_name},
    StateFault{"42", Fault::syntax},         StateFault{"22", Fault::value},
    StateFault{"23", Fault::value},          StateFault{"IM00", Fault::no_driver},
    StateFault{"01", Fault::notice},
};

/// The driver manager's notice, beside IM-states, that names the library it cannot load.
constexpr std::string_view kCannotLoad = "Can't open lib";

Fault fault_of(const Diagnostic& record) {
  if (record.text.find(kCannotLoad) != std::string::npos) return Fault::no_driver;
  for (const NativeFault& known : kNativeFaults)
    if (known.code == record.native_code) return known.fault;
  for (const StateFault& known : kStateFaults)
    if (record.state.starts_with(known.prefix)) return known.fault;
  return Fault::other;
}

struct Meaning {
  Kind kind;
  std::string_view words;  ///< in front of the engine's; empty where those say it all
};

Meaning meaning_of(Fault fault, Step step) {
  switch (fault) {
    case Fault::login_refused:
      return {Kind::connection, "The server refused the user name or the password"};
    case Fault::no_catalogue:
      return {Kind::connection, "The server does not open this catalogue for the user"};
    case Fault::no_driver:
      return {Kind::connection, "The ODBC driver or data source is not set up on this machine"};
    default:
      break;
  }
  if (step == Step::connect) return {Kind::connection, "The server cannot be reached"};
  switch (fault) {
    case Fault::link_lost:
    case Fault::unreachable:
      return {Kind::connection, "The connection to the server is lost"};
    case Fault::timed_out:
      return {Kind::busy, "The statement took longer than its time-out and was stopped"};
    case Fault::deadlock:
      return {Kind::busy, "The server stopped the statement in favour of another program"};
    case Fault::locked:
      return {Kind::busy, "Another program held the catalogue for too long"};
    case Fault::denied:
      return {Kind::other, "The user lacks a right on the server"};
    case Fault::unknown_name:
      return {Kind::unknown_name, ""};
    case Fault::value:
      return {Kind::value, ""};
    case Fault::storage:
      return {Kind::storage, "The server cannot store"};
    case Fault::syntax:
      return {Kind::syntax, ""};
    default:
      return {Kind::other, ""};
  }
}

}  // namespace

DatabaseError diagnose(const std::vector<Diagnostic>& records, Step step) {
  const auto telling = std::min_element(
      records.begin(), records.end(),
      [](const Diagnostic& a, const Diagnostic& b) { return fault_of(a) < fault_of(b); });
  if (telling == records.end())
    return {step == Step::connect ? Kind::connection : Kind::other,
            "The ODBC driver failed and does not say why."};
  const Meaning meaning = meaning_of(fault_of(*telling), step);
  std::string message(meaning.words);
  if (!message.empty()) message += ": ";
  return {meaning.kind, message + telling->text, telling->native_code};
}

}  // namespace tela::odbc
