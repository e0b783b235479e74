#include "ui/PagePrinter.h"

#include "ui/Event.h"
#include "ui/qt/BrowserView.h"

namespace ui {

std::string PagePrinter::problem() {
    return browserFunction(printPageName) != nullptr
               ? std::string()
               : "the web engine that makes PDF files is not part of this program, or is switched "
                 "off by TOPICSMITH_BROWSER";
}

std::string PagePrinter::print(PageSource& source, const std::string& place, Paper paper) {
    const auto printPage = reinterpret_cast<PrintPage>(browserFunction(printPageName));
    if (printPage == nullptr) {
        return {};
    }
    const PageHost host = {[&source](const QString& path) {
                               std::optional<QByteArray> bytes;
                               guarded([&] {
                                   if (const auto found = source.read(path.toStdString())) {
                                       bytes = QByteArray::fromStdString(*found);
                                   }
                               });
                               return bytes;
                           },
                           [] {}, [](const QString&) {}};
    QByteArray pdf;
    printPage(host, QString::fromStdString(place), paper == Paper::letter, pdf);
    return pdf.toStdString();
}

} // namespace ui
