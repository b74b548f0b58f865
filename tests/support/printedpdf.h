// A printed page read back from its PDF.
#pragma once

#include <poppler-qt6.h>

#include <QTemporaryDir>
#include <QTest>

#include "platform/printers.h"

namespace support {

using namespace Qt::Literals::StringLiterals;

class PrintedPdf {
public:
    struct Word {
        QString text;
        QRectF box;  // in points from the paper's corner
    };

    explicit PrintedPdf(const QString& file) : document_(Poppler::Document::load(file)) {
        if (!document_) QTest::qFail(qPrintable("no PDF: " + file), __FILE__, __LINE__);
    }

    int pageCount() const { return document_ ? document_->numPages() : 0; }
    QSizeF paper(int page = 0) const { return document_->page(page)->pageSizeF(); }
    QVector<Word> words(int page) const {
        QVector<Word> found;
        for (const auto& box : document_->page(page)->textList()) found.append({box->text(), box->boundingBox()});
        return found;
    }
    QString text(int page) const {
        QStringList texts;
        for (const Word& word : words(page)) texts << word.text;
        return texts.join(u' ');
    }
    // Of all pages.
    QString text() const {
        QStringList pages;
        for (int page = 0; page < pageCount(); ++page) pages << text(page);
        return pages.join(u' ');
    }
    QRectF boxOf(const QString& text, int page = 0) const {
        for (const Word& word : words(page))
            if (word.text == text) return word.box;
        QTest::qFail(qPrintable("not on the page: " + text), __FILE__, __LINE__);
        return {};
    }
    // The words that reach over an edge of the paper.
    QStringList outside() const {
        QStringList found;
        for (int page = 0; page < pageCount(); ++page)
            for (const Word& word : words(page))
                if (!QRectF(QPointF(), paper(page)).contains(word.box)) found << word.text;
        return found;
    }

private:
    std::unique_ptr<Poppler::Document> document_;
};

// What a routine draws, through the real writer.
inline PrintedPdf printedPdf(const std::function<void(platform::Printer&)>& draw,
                             const platform::Printer::FontSource& fonts, const platform::PageSetup& setup = {},
                             qint64 memoryLimit = platform::PrintDocument::usualMemory) {
    QTemporaryDir folder;
    const QString file = folder.filePath(u"page.pdf"_s);
    platform::Printer printer(setup, u"Δοκιμή"_s, fonts, memoryLimit);
    draw(printer);
    platform::SystemPrinters().writePdf(*printer.endDoc(), file, {});
    return PrintedPdf(file);
}

}  // namespace support
