#include "TextReport.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include <algorithm>
#include <exception>
#include <utility>

#include "Order.h"
#include "Printable.h"

namespace {

struct TLine {
  std::string label;  // "" for a further element of an array
  std::string text;
};
using TBlock = std::vector<TLine>;  // one instance

// Up to that many elements of an array have a line each; more share lines of that width.
constexpr std::size_t kManyElements = 8;
constexpr std::size_t kLineWidth = 72;

std::vector<std::string> Wrapped(const std::vector<std::string>& texts) {
  if (texts.size() <= kManyElements) return texts;
  std::vector<std::string> lines;
  for (const std::string& text : texts) {
    if (lines.empty()) {
      lines.push_back(text);
    } else if (lines.back().size() + 2 + text.size() <= kLineWidth) {
      lines.back() += ", " + text;
    } else {
      lines.back() += ',';
      lines.push_back(text);
    }
  }
  return lines;
}

std::vector<std::string> TextsOf(const TCIMProperty& property) {
  const TCIMValue value = property.GetValue();
  if (value.IsNull()) {
    const std::string text = property.ToString();
    return text.empty() ? std::vector<std::string>() : std::vector<std::string>{text};
  }
  if (value.IsArray()) return Wrapped(property.ToStringVector());
  if (value.IsReference()) return {static_cast<TCIMReference>(value).GetPath()};
  return {property.ToString()};
}

std::vector<std::string> TextsOrFault(const TCIMProperty& property) {
  try {
    return TextsOf(property);
  } catch (const std::exception& exception) {
    return {std::string("(can't be displayed: ") + exception.what() + ")"};
  }
}

TBlock BlockOf(const TCIMInstance& instance) {
  TBlock block;
  for (const TCIMProperty* property : InDisplayOrder(instance)) {
    std::string label = Printable(LabelOf(property->GetDeclaration()));
    for (const std::string& text : TextsOrFault(*property)) {
      block.push_back({std::exchange(label, ""), Printable(text)});
    }
  }
  return block;
}

std::size_t LabelWidth(const std::vector<TBlock>& blocks) {
  std::size_t width = 0;
  for (const TBlock& block : blocks) {
    for (const TLine& line : block) width = std::max(width, CountCharacters(line.label));
  }
  return width;
}

void AppendBlock(const TBlock& block, std::size_t width, std::string& report) {
  for (const TLine& line : block) {
    report += "  " + line.label;
    report.append(width - CountCharacters(line.label) + 2, ' ');
    report += line.text;
    report.erase(report.find_last_not_of(' ') + 1);
    report += '\n';
  }
}

void AppendClass(const TCIMClass& cimClass, std::string& report) {
  const std::string title = Printable(TitleOf(cimClass));
  report += cimClass.GetName();
  if (title != cimClass.GetName()) report += " (" + title + ")";
  report += '\n';
  std::vector<TBlock> blocks;
  for (const TCIMInstance* instance : cimClass.EnumerateInstances(false)) {
    blocks.push_back(BlockOf(*instance));
  }
  const std::size_t width = LabelWidth(blocks);
  for (const TBlock& block : blocks) {
    AppendBlock(block, width, report);
    report += '\n';
  }
}

void AppendCategory(const std::string& category, std::string& report) {
  report += category + '\n' + std::string(CountCharacters(category), '=') + "\n\n";
}

}  // namespace

std::string TextReport(const std::vector<const TCIMClass*>& classes) {
  std::string report;
  std::string category;
  for (const TCIMClass* cimClass : classes) {
    const std::string next = Printable(CategoryOf(*cimClass));
    if (next != category) AppendCategory(category = next, report);
    AppendClass(*cimClass, report);
  }
  if (!report.empty()) report.pop_back();  // the blank line behind the last instance
  return report;
}
