// The way to a running LibreOffice.
#pragma once

#include <com/sun/star/frame/XDesktop2.hpp>
#include <string>
#include <string_view>

namespace tela {

/// The desktop of the office that listens on the pipe of that name; empty if none does. Throws
/// com::sun::star::uno::Exception.
com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2> connect_office(
    std::string_view pipe);

std::string to_utf8(const rtl::OUString& text);
/// Bytes that are no UTF-8 become replacement characters.
rtl::OUString from_utf8(std::string_view text);

}  // namespace tela
