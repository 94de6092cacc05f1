#include "Printers.h"

#include "CupsLibrary.h"
#include "RunTimeError.h"

#include <memory>
#include <span>
#include <string_view>

#include <sys/socket.h>

namespace hearthbook {

namespace {

constexpr int connectMs = 10'000;
constexpr double answerSeconds = 30;

/// What went wrong last, as the service words it.
std::string lastError() {
  const char* words = cups().lastErrorText();
  std::string why = words ? words : "";
  while (why.ends_with('.'))
    why.pop_back();
  return why.empty() ? why : ": " + why;
}

[[noreturn]] void failPrinting(const std::string& what) {
  throw RunTimeError(what + lastError() + ".");
}

/// A connection to the printing service that this user's desktop has.
class PrintService {
public:
  PrintService()
      : http_(cups().connect(cups().server(), cups().port(), nullptr, AF_UNSPEC,
                             cups().encryption(), 1, connectMs, nullptr),
              cups().close) {
    if (!http_)
      throw RunTimeError("The printing service does not answer.");
    cups().setTimeout(
        http_.get(), answerSeconds, [](http_t*, void*) { return 0; }, nullptr);
  }

  [[nodiscard]] http_t* get() const { return http_.get(); }

private:
  std::unique_ptr<http_t, decltype(CupsLibrary::close)> http_;
};

// Of one printer the user may keep several sets of choices, each with a name of its own behind that
// of the printer: "Laser/photo".
constexpr char instanceMark = '/';

std::string nameOf(const cups_dest_t& dest) {
  return dest.instance ? dest.name + (instanceMark + std::string(dest.instance)) : dest.name;
}

cups_dest_t* findNamed(const PrintService& service, const std::string& printer) {
  const std::size_t mark = printer.find(instanceMark);
  if (mark == std::string::npos)
    return cups().getNamedDest(service.get(), printer.c_str(), nullptr);
  return cups().getNamedDest(service.get(), printer.substr(0, mark).c_str(),
                             printer.substr(mark + 1).c_str());
}

/// One printer, with what it says of itself.
class Destination {
public:
  Destination(const PrintService& service, const std::string& printer)
      : service_(service),
        dest_(findNamed(service, printer), [](cups_dest_t* dest) { cups().freeDests(1, dest); }) {
    if (!dest_)
      failPrinting("The printer " + printer + " is not there");
    info_.reset(cups().copyDestInfo(service.get(), dest_.get()));
    if (!info_)
      failPrinting("The printer " + printer + " does not answer");
  }

  [[nodiscard]] http_t* http() const { return service_.get(); }
  [[nodiscard]] cups_dest_t* dest() const { return dest_.get(); }
  [[nodiscard]] cups_dinfo_t* info() const { return info_.get(); }

private:
  const PrintService& service_;
  std::unique_ptr<cups_dest_t, void (*)(cups_dest_t*)> dest_;
  std::unique_ptr<cups_dinfo_t, decltype(CupsLibrary::freeDestInfo)> info_{nullptr,
                                                                           cups().freeDestInfo};
};

class JobOptions {
public:
  JobOptions(const cups_dest_t& printer, const PrintSettings& settings) {
    if (printer.instance)
      addKept(printer, !settings.media.empty());
    add("copies", std::to_string(settings.copies));
    add("print-color-mode", settings.colorMode == ColorMode::Color ? "color" : "monochrome");
    add("print-quality", qualityOf(settings.quality));
    if (!settings.media.empty())
      add("media", settings.media);
  }
  ~JobOptions() { cups().freeOptions(count_, options_); }
  JobOptions(const JobOptions&) = delete;
  JobOptions& operator=(const JobOptions&) = delete;

  [[nodiscard]] int count() const { return count_; }
  [[nodiscard]] cups_option_t* options() const { return options_; }

private:
  static const char* qualityOf(PrintQuality quality) {
    switch (quality) {
    case PrintQuality::Best:
      return "5";
    case PrintQuality::Draft:
      return "3";
    case PrintQuality::Normal:
      break;
    }
    return "4";
  }
  /// What the user has set under that name. The form's own choices come later and take its place.
  void addKept(const cups_dest_t& printer, bool hasPaper) {
    for (const cups_option_t& kept :
         std::span(printer.options, static_cast<std::size_t>(printer.num_options)))
      if (!hasPaper || !isPaper(kept.name))
        add(kept.name, kept.value);
  }
  static bool isPaper(std::string_view option) {
    return option == "PageSize" || option == "PageRegion" || option == "media-col";
  }
  void add(const char* name, const std::string& value) {
    count_ = cups().addOption(name, value.c_str(), count_, &options_);
  }

  int count_ = 0;
  cups_option_t* options_ = nullptr;
};

int createJob(const Destination& printer, const std::string& title, const JobOptions& options) {
  int job = 0;
  const ipp_status_t status = cups().createJob(printer.http(), printer.dest(), printer.info(), &job,
                                               title.c_str(), options.count(), options.options());
  if (job <= 0 || status > IPP_STATUS_OK_CONFLICTING)
    failPrinting("The printer takes no pages");
  return job;
}

bool sendDocument(const Destination& printer, int job, const std::string& title,
                  const std::string& pdf) {
  return cups().startDocument(printer.http(), printer.dest(), printer.info(), job, title.c_str(),
                              CUPS_FORMAT_PDF, 0, nullptr, 1) == HTTP_STATUS_CONTINUE &&
         cups().writeData(printer.http(), pdf.data(), pdf.size()) == HTTP_STATUS_CONTINUE &&
         cups().finishDocument(printer.http(), printer.dest(), printer.info()) <=
             IPP_STATUS_OK_CONFLICTING;
}

ipp_attribute_t* within(ipp_attribute_t* group, const char* name, ipp_tag_t kind) {
  return group ? cups().findAttribute(cups().collectionOf(group, 0), name, kind) : nullptr;
}

double lengthIn(ipp_attribute_t* size, const char* name) {
  constexpr double perInch = 2540; // they are told in hundredths of a millimetre
  ipp_attribute_t* length = within(size, name, IPP_TAG_INTEGER);
  return length ? cups().numberOf(length, 0) / perInch * twipsPerInch : 0;
}

} // namespace

std::vector<Printer> listPrinters() {
  const PrintService service;
  cups_dest_t* found = nullptr;
  const int count = cups().getDests(service.get(), &found);
  if (count <= 0 && cups().lastError() > IPP_STATUS_OK_CONFLICTING &&
      cups().lastError() != IPP_STATUS_ERROR_NOT_FOUND)
    failPrinting("The list of printers cannot be read");
  std::vector<Printer> printers;
  for (const cups_dest_t& dest : std::span(found, static_cast<std::size_t>(count)))
    printers.push_back({nameOf(dest), dest.is_default != 0});
  cups().freeDests(count, found);
  return printers;
}

std::optional<TwipsSize> ownPaperOf(const std::string& printer) {
  const PrintService service;
  const Destination asked(service, printer);
  // The paper's name is empty at some printers, its size is not.
  ipp_attribute_t* paper =
      cups().findDefault(asked.http(), asked.dest(), asked.info(), "media-col");
  ipp_attribute_t* size = within(paper, "media-size", IPP_TAG_BEGIN_COLLECTION);
  const TwipsSize told{lengthIn(size, "x-dimension"), lengthIn(size, "y-dimension")};
  return told.width > 0 && told.height > 0 ? std::optional(told) : std::nullopt;
}

void printPdf(const std::string& printer, const std::string& title, const PrintSettings& settings,
              const std::string& pdf) {
  const PrintService service;
  const Destination to(service, printer);
  const JobOptions options(*to.dest(), settings);
  const int job = createJob(to, title, options);
  if (sendDocument(to, job, title, pdf))
    return;
  const RunTimeError failure("The page did not reach the printer" + lastError() + ".");
  cups().cancelJob(to.http(), to.dest(), job); // half a page is not to be printed later
  throw failure;
}

} // namespace hearthbook
