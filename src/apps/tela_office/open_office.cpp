#include "apps/tela_office/open_office.h"

#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <cppuhelper/bootstrap.hxx>

namespace tela {

namespace uno = com::sun::star::uno;
namespace frame = com::sun::star::frame;
using com::sun::star::bridge::UnoUrlResolver;
using com::sun::star::connection::NoConnectException;

uno::Reference<frame::XDesktop2> connect_office(std::string_view pipe) {
  const auto here = cppu::defaultBootstrap_InitialComponentContext();
  const auto url = "uno:pipe,name=" + from_utf8(pipe) + ";urp;StarOffice.ComponentContext";
  try {
    const uno::Reference<uno::XComponentContext> there(UnoUrlResolver::create(here)->resolve(url),
                                                       uno::UNO_QUERY_THROW);
    return frame::Desktop::create(there);
  } catch (const NoConnectException&) {
    return {};
  }
}

std::string to_utf8(const rtl::OUString& text) {
  const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

rtl::OUString from_utf8(std::string_view text) {
  return rtl::OStringToOUString(rtl::OString(text.data(), static_cast<sal_Int32>(text.size())),
                                RTL_TEXTENCODING_UTF8);
}

}  // namespace tela
