// The string table as the resource compiler built it must read as the
// headless table does, and the hard texts of the generator's fixture must
// survive the resource compiler.
#include <clocale>
#include <string>

#include "platform/win32/win32_platform.h"
#include "resources/strings.h"
#include "seam_check.h"

namespace seam_check {

namespace {

// The resource's own text, "" when there is none.
std::wstring LoadResourceString(unsigned id) {
  const wchar_t* text = nullptr;
  const int length = LoadStringW(GetModuleHandleW(nullptr), id, reinterpret_cast<wchar_t*>(&text), 0);
  return length > 0 ? std::wstring(text, static_cast<size_t>(length)) : std::wstring();
}

}  // namespace

void CheckStrings() {
  int agreeing = 0;
  std::string firstDifference;
  for (int id = 1000; id <= 26300; ++id) {
    const std::string loaded = platform::Narrow(LoadResourceString(id));
    if (loaded != StringText(id) && firstDifference.empty())
      firstDifference = std::to_string(id) + " reads \"" + loaded + "\"";
    agreeing += loaded == StringText(id) && !loaded.empty();
  }
  Report("LoadStringW reads every id 1000..26300 as StringText does", firstDifference.empty() && agreeing > 0,
         firstDifference.empty() ? std::to_string(agreeing) + " strings" : firstDifference);

  std::string wrong;
  for (auto [id, text] : {std::pair{30000u, L"メモリーが不足しました"},
                          {30001u, L"say \"hi\" to C:\\temp\\"},
                          {30002u, L"a;b;c [not closed"},
                          {30003u, L"tab\there\nline two: 100%%"},
                          {30099u, L"carriage return ends this line"}})
    if (LoadResourceString(id) != text) wrong += std::to_string(id) + " ";
  Report("Japanese, quotes, backslashes and escapes survive the resource compiler", wrong.empty(), wrong);

  const char* locale = std::setlocale(LC_ALL, StringText(26210));
  Report("the runtime knows the locale of string 26210", locale != nullptr,
         std::string(StringText(26210)) + " -> " + (locale ? locale : "(none)"));
  std::setlocale(LC_ALL, "C");
}

}  // namespace seam_check
