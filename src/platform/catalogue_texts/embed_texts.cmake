# Writes OUTPUT, a C++ source that holds the texts of the files SOURCES in their order.
set(scripts "")
foreach(source IN LISTS SOURCES)
  file(READ "${source}" text)
  string(APPEND scripts "    R\"sql(${text})sql\",\n")
endforeach()
file(WRITE "${OUTPUT}" "#include \"platform/catalogue_texts/catalogue_texts.h\"

namespace tela {

std::span<const std::string_view> catalogue_scripts() {
  static constexpr std::string_view scripts[] = {
${scripts}  };
  return scripts;
}

}  // namespace tela
")
