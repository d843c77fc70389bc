// Opens a CSV file in LibreOffice, unseen, closes it again, and prints how many milliseconds the
// opening took.
//
// usage: csv_opener PIPE FILE OPTIONS     the options are those of LibreOffice's filter for CSV
#include <chrono>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <cstdio>
#include <cstdlib>

#include "apps/tela_office/open_office.h"

namespace star = com::sun::star;
using star::uno::Any;
using star::uno::Reference;
using star::uno::UNO_QUERY_THROW;

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const auto office = tela::connect_office(argv[1]);
  if (!office.is()) return 3;
  star::uno::Sequence<star::beans::PropertyValue> how(3);
  const auto direct = star::beans::PropertyState_DIRECT_VALUE;
  how.getArray()[0] = {"Hidden", -1, Any(true), direct};
  how.getArray()[1] = {"FilterName", -1, Any(rtl::OUString("Text - txt - csv (StarCalc)")), direct};
  how.getArray()[2] = {"FilterOptions", -1, Any(tela::from_utf8(argv[3])), direct};
  const auto begin = std::chrono::steady_clock::now();
  const auto opened =
      office->loadComponentFromURL("file://" + tela::from_utf8(argv[2]), "_blank", 0, how);
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
  Reference<star::util::XCloseable>(opened, UNO_QUERY_THROW)->close(true);
  std::printf("%f\n", took.count());
  std::fflush(stdout);
  std::_Exit(0);
}
