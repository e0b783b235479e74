#pragma once

#include <QBuffer>
#include <QMimeDatabase>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlSchemeHandler>

#include "ui/qt/BrowserView.h"
#include "ui/qt/PageFiles.h"
#include "ui/qt/PageScheme.h"

/// How the web engine gets pages that are no files.
namespace ui {

inline bool isPage(const QUrl& url) {
    return url.scheme() == pageScheme;
}

/// Answers the browser's requests from the host.
class PageServer : public QWebEngineUrlSchemeHandler {
public:
    explicit PageServer(const PageHost& host) : host_(host) {}

    void requestStarted(QWebEngineUrlRequestJob* job) override {
        const QString path = job->requestUrl().path(QUrl::FullyDecoded);
        const QByteArray type =
            QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension).name().toLatin1();
        if (const auto bytes = host_.read(path)) {
            reply(job, type, *bytes);
        } else if (job->requestUrl() == wanted) {
            reply(job, "text/html;charset=utf-8", missingPage(path).toUtf8());
        } else {
            job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        }
    }

    QUrl wanted; ///< the page itself, rather than a part of it

private:
    static void reply(QWebEngineUrlRequestJob* job, const QByteArray& type,
                      const QByteArray& bytes) {
        auto* buffer = new QBuffer(job); // deleted with it
        buffer->setData(bytes);
        job->reply(type, buffer);
    }

    const PageHost& host_;
};

/// Keeps everything else out.
class PagesOnly : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& request) override {
        request.block(!isPage(request.requestUrl()) && request.requestUrl().scheme() != "data");
    }
};

} // namespace ui
