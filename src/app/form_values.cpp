#include "app/form_values.h"

#include <nlohmann/json.hpp>

#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr std::string_view kFormsSection = "Dialogs";

}  // namespace

const std::string& ValueOf(const FormValues& values, std::string_view field) {
  static const std::string none;
  const auto found = values.find(field);
  return found == values.end() ? none : found->second;
}

std::optional<double> NumberIn(const FormValues& values, std::string_view field,
                               std::string_view localeDecimalSeparator) {
  return texts::WholeNumber(texts::FileNumber(ValueOf(values, field), localeDecimalSeparator));
}

std::optional<std::vector<double>> NumbersIn(const FormValues& values, std::string_view field,
                                             std::string_view localeDecimalSeparator) {
  const std::string between = localeDecimalSeparator == "," ? "; \t" : ",; \t";
  const std::string& text = ValueOf(values, field);
  std::vector<double> numbers;
  for (std::size_t begin = text.find_first_not_of(between); begin != std::string::npos;) {
    const std::size_t end = std::min(text.find_first_of(between, begin), text.size());
    const auto number = texts::WholeNumber(texts::FileNumber(
        std::string_view(text).substr(begin, end - begin), localeDecimalSeparator));
    if (!number) return std::nullopt;
    numbers.push_back(*number);
    begin = text.find_first_not_of(between, end);
  }
  if (numbers.empty()) return std::nullopt;
  return numbers;
}

FormValues LoadForm(const platform::SettingsStore& store, std::string_view title,
                    std::string_view form) {
  const std::optional<std::string> text = store.Read(title, kFormsSection, form);
  if (!text) return {};
  // Whatever else stands there, the dialog begins as it does at first.
  const nlohmann::json object = nlohmann::json::parse(*text, nullptr, false);
  FormValues values;
  if (!object.is_object()) return values;
  for (const auto& [field, value] : object.items()) {
    if (value.is_string()) values[field] = value.get<std::string>();
  }
  return values;
}

std::error_code SaveForm(platform::SettingsStore& store, std::string_view title,
                         std::string_view form, const FormValues& values) {
  const nlohmann::json object(values);
  return store.Save(
      title, kFormsSection,
      {{std::string(form), object.dump(-1, ' ', true, nlohmann::json::error_handler_t::replace)}});
}

}  // namespace zentab::app
