#include <algorithm>

#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <QMouseEvent>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTimer>

#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/ForeignText.h"
#include "ui/qt/BrowserView.h"
#include "ui/qt/PageFiles.h"
#include "ui/qt/PageScheme.h"
#include "ui/qt/TameHtml.h"

// The library that is loaded for the browser where there is no web engine: the toolkit's own rich
// text. It knows no scripts, forwards nobody, and shows the simpler part of HTML and of style
// sheets.
namespace ui {

namespace {

/// A picture that draws other pictures would bring in files that nobody has asked for.
bool drawsOnlyItself(const QByteArray& picture) {
    constexpr const char* zipped = "\x1F\x8B";
    static const QRegularExpression other("<!ENTITY|<\\?xml-stylesheet|[<:]image\\b",
                                          QRegularExpression::CaseInsensitiveOption);
    if (picture.startsWith(zipped)) {
        return false;
    }
    const bool isText = picture.trimmed().startsWith('<') || picture.startsWith("\xEF\xBB\xBF")
                        || picture.startsWith("\xFE\xFF") || picture.startsWith("\xFF\xFE");
    return !isText || (!picture.contains('\0') && !QString::fromLatin1(picture).contains(other));
}

/// What an address holds that begins with "data:".
QByteArray dataIn(const QUrl& url) {
    const QByteArray address = url.toEncoded();
    const qsizetype comma = address.indexOf(',');
    const QByteArray bytes = QByteArray::fromPercentEncoding(address.mid(comma + 1));
    return address.left(comma).endsWith(";base64") ? QByteArray::fromBase64(bytes) : bytes;
}

QString readable(std::string_view utf8) {
    return QString::fromStdString(tamed(utf8));
}

/// An address as browsers understand it, with either slash.
QUrl withPlainSlashes(QUrl url) {
    QString path = url.path(QUrl::FullyDecoded);
    // The toolkit takes a share for something in the page's folder.
    const qsizetype share = path.indexOf(R"(/\\)");
    path.replace('\\', '/');
    if (share >= 0) {
        return QUrl::fromLocalFile(path.mid(share + 1));
    }
    url.setPath(QDir::cleanPath(path), QUrl::DecodedMode);
    return url;
}

/// How much of a text counts as seen; pictures have a character of their own in it.
std::size_t seenIn(const QString& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](QChar character) {
        return !character.isSpace() && !character.isLowSurrogate();
    }));
}

/// Shows marked-up text. What belongs to it comes from `read` and from nowhere else.
class TextPage : public QTextBrowser {
public:
    using Read = std::function<std::optional<QVariant>(int type, const QUrl& url)>;

    TextPage(QWidget* parent, Read read) : QTextBrowser(parent), read_(std::move(read)) {
        setOpenLinks(false);
        setContextMenuPolicy(Qt::NoContextMenu);
        // Pages bring their colours and expect white paper.
        QPalette paper = palette();
        paper.setColor(QPalette::Base, Qt::white);
        paper.setColor(QPalette::Text, Qt::black);
        setPalette(paper);
    }

    std::function<void(std::size_t seen, bool behind)> clicked; ///< may be empty

    QVariant loadResource(int type, const QUrl& url) override {
        if (type == QTextDocument::HtmlResource) {
            page_ = url;
            roomForPictures_ = mostForPictures;
        }
        const auto found = url.scheme() == QLatin1String("data")
                               ? QVariant(dataIn(url))
                               : read_(type, page_.resolved(withPlainSlashes(url)));
        // Given nothing, or no picture, the toolkit would look for a file of that name itself.
        if (type == QTextDocument::ImageResource) {
            return picture(found ? found->toByteArray() : QByteArray());
        }
        if (type == QTextDocument::StyleSheetResource && found
            && found->toByteArray().size() > largestSheet) {
            return QByteArray();
        }
        return found.value_or(QByteArray());
    }

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        QTextBrowser::mouseReleaseEvent(event);
        const QPoint place = event->position().toPoint();
        if (event->button() != Qt::LeftButton || !clicked || textCursor().hasSelection()
            || !anchorAt(place).isEmpty()) {
            return;
        }
        const int position = cursorForPosition(place).position();
        const bool behind = position > 0 && document()->characterAt(position).isSpace()
                            && !document()->characterAt(position - 1).isSpace();
        clicked(seenIn(document()->toPlainText().left(position)), behind);
    }

private:
    // A small file can hold a large picture, and every rule of a sheet is compared with every tag.
    static constexpr qint64 mostForPictures = qint64(256) << 20U;
    static constexpr qsizetype largestSheet = qsizetype(256) << 10U;

    /// A sign for one that is missing, or cannot be shown.
    QImage picture(QByteArray bytes) {
        constexpr qint64 bytesOfPixel = 4;
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer);
        const QSize size = reader.size();
        const qint64 room = qint64(size.width()) * size.height() * bytesOfPixel;
        QImage image;
        if (drawsOnlyItself(bytes) && room <= roomForPictures_ && reader.read(&image)) {
            roomForPictures_ -= image.sizeInBytes();
            return image;
        }
        image = QImage(16, 16, QImage::Format_RGB32);
        image.fill(Qt::lightGray);
        return image;
    }

    Read read_;
    QUrl page_;                                ///< that is shown, or being read
    qint64 roomForPictures_ = mostForPictures; ///< that this page has left, in memory
};

class TextPreview : public BrowserView {
public:
    TextPreview(QWidget* parent, const std::function<void()>& refused)
        : page_(
            new TextPage(parent, [this](int type, const QUrl& url) { return read(type, url); })) {
        QObject::connect(page_, &QTextBrowser::anchorClicked, page_, [this, refused] {
            // When the browser is done with it: whoever is told may wait for a person.
            QTimer::singleShot(0, page_, [refused] { refused(); });
        });
    }
    ~TextPreview() override { delete page_; }

    QWidget* widget() override { return page_; }

    void navigate(const QUrl& file, const QString& folder) override {
        const bool again = page_->source() == file;
        const int scrolled = page_->verticalScrollBar()->value();
        folder_ = folder;
        shown_ = file;
        if (again) {
            page_->reload();
        } else {
            page_->setSource(file, QTextDocument::HtmlResource);
        }
        page_->verticalScrollBar()->setValue(again ? scrolled : 0);
        showKept();
    }

    void keepInView(const QString& id) override { kept_ = id; }

    void hearClicks(std::function<void(std::size_t seen, bool behind)> clicked) override {
        page_->clicked = std::move(clicked);
    }

private:
    void showKept() {
        for (QTextBlock block = page_->document()->begin(); block.isValid() && !kept_.isEmpty();
             block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                if (part.fragment().charFormat().anchorNames().contains(kept_)) {
                    page_->setTextCursor(QTextCursor(block));
                    page_->ensureCursorVisible();
                    return;
                }
            }
        }
    }

    QString kept_;
    std::optional<QVariant> read(int type, const QUrl& url) const {
        const bool isPage = type == QTextDocument::HtmlResource && url == shown_;
        const QString path = fileOf(url);
        if (!isPage && !mayBeShown(folder_, path)) {
            return {};
        }
        std::string bytes;
        if (platform::readFile(platform::pathFromUtf8(path.toStdString()), bytes, largestPart)) {
            return {};
        }
        return isPage ? QVariant(readable(text::decodedForeignPage(bytes, text::CodePage::western)))
                      : QByteArray::fromStdString(bytes);
    }

    /// Windows paths look like an address whose protocol is the drive.
    static QString fileOf(const QUrl& url) {
        if (url.scheme().size() == 1) {
            return url.scheme() + ':' + url.path(QUrl::FullyDecoded);
        }
        return url.isLocalFile() ? url.toLocalFile() : QString();
    }

    QString folder_;
    QUrl shown_;
    QPointer<TextPage> page_;
};

class TextPages : public PageBrowserView {
public:
    TextPages(QWidget* parent, PageHost host)
        : host_(std::move(host)),
          page_(
              new TextPage(parent, [this](int type, const QUrl& url) { return read(type, url); })) {
        QObject::connect(page_, &QTextBrowser::anchorClicked, page_,
                         [this](const QUrl& url) { follow(url); });
        // Later: the way back is not up to date yet.
        QObject::connect(
            page_, &QTextBrowser::sourceChanged, page_, [this] { loaded(); }, Qt::QueuedConnection);
    }
    ~TextPages() override { delete page_; }

    QWidget* widget() override { return page_; }

    void reset() override {
        ++book_; // another address for every page
        forgetting_ = true;
    }

    void show(const QString& path, const QString& anchor) override {
        load(pageUrl(book_, path, anchor));
    }

    QUrl shown() const override { return page_->source(); }

    bool canGo(bool back) const override {
        return back ? page_->isBackwardAvailable() : page_->isForwardAvailable();
    }

    void go(bool back) override { back ? page_->backward() : page_->forward(); }

    void mark(const QString& text) override {
        marked_ = text;
        showMarks();
    }

    bool print() override {
        QPrinter printer;
        QPrintDialog dialog(&printer, page_);
        if (dialog.exec() != QDialog::Accepted) {
            return true;
        }
        page_->print(&printer);
        return printer.printerState() != QPrinter::Error;
    }

    void zoom(int step) override {
        page_->zoomIn(step == 0 ? -zoomed_ : step);
        zoomed_ = step == 0 ? 0 : zoomed_ + step;
    }

private:
    std::optional<QVariant> read(int type, const QUrl& url) const {
        if (url.scheme() != QLatin1String(pageScheme)) {
            return {};
        }
        const QString path = url.path(QUrl::FullyDecoded);
        const auto bytes = host_.read(path);
        if (type != QTextDocument::HtmlResource) {
            return bytes ? std::optional<QVariant>(*bytes) : std::nullopt;
        }
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        if (!bytes) {
            return missingPage(path);
        }
        std::string_view page(bytes->constData(), static_cast<std::size_t>(bytes->size()));
        page.remove_prefix(page.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
        return readable(page);
    }

    /// At the next quiet moment, as web engines do: of several pages, the last one is shown.
    void load(const QUrl& url) {
        wanted_ = url;
        QTimer::singleShot(0, page_, [this, url] {
            if (url == wanted_) {
                page_->setSource(url, QTextDocument::HtmlResource);
            }
        });
    }

    void follow(const QUrl& url) {
        if (url.scheme() == QLatin1String(pageScheme)) {
            load(withPlainSlashes(url));
        } else {
            // When the browser is done with it: whoever is told may wait for a person.
            QTimer::singleShot(0, page_,
                               [this, address = url.toString()] { host_.outside(address); });
        }
    }

    void loaded() {
        if (forgetting_) {
            forgetting_ = false;
            page_->clearHistory();
        }
        showMarks();
        host_.moved();
    }

    /// All of them, with the first in view.
    void showMarks() {
        QList<QTextEdit::ExtraSelection> marks;
        QTextCursor place(page_->document());
        constexpr qsizetype most = 1000; // more would take the window's time
        while (!marked_.isEmpty() && marks.size() < most
               && !(place = page_->document()->find(marked_, place)).isNull()) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = place;
            mark.format.setBackground(QColor("#ffe08a"));
            marks.append(mark);
        }
        page_->setExtraSelections(marks);
        if (!marks.isEmpty()) {
            QTextCursor first = marks.front().cursor;
            first.setPosition(first.selectionStart());
            page_->setTextCursor(first);
        }
    }

    PageHost host_;
    QPointer<TextPage> page_;
    QString marked_;
    QUrl wanted_;
    int book_ = 0;
    int zoomed_ = 0;          ///< steps from the usual size
    bool forgetting_ = false; ///< the way back, when the next page is there
};

} // namespace

} // namespace ui

extern "C" Q_DECL_EXPORT ui::BrowserView*
topicsmithMakeBrowser(QWidget* parent, const std::function<void()>& refused) {
    return new ui::TextPreview(parent, refused);
}

extern "C" Q_DECL_EXPORT ui::PageBrowserView* topicsmithMakePageBrowser(QWidget* parent,
                                                                        const ui::PageHost& host) {
    return new ui::TextPages(parent, host);
}
