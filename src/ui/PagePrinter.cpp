#include "ui/PagePrinter.h"

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
    const PageHost host = {readerOf(source), [] {}, [](const QString&) {}};
    QByteArray pdf;
    printPage(host, QString::fromStdString(place), paper == Paper::letter, pdf);
    return pdf.toStdString();
}

} // namespace ui
