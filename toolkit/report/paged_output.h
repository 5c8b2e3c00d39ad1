#pragma once

#include "toolkit/report/paged_document.h"

#include <functional>

class QPagedPaintDevice;

/// Pages of a document as they are to be printed, counted from 0.
using PageList = std::vector<int>;
PageList allPages(const PagedDocument& document);

/// Called before each page; false breaks off.
using PageProgress = std::function<bool(int page)>;

/// Paints pages onto paper of their own size, all moved by offset (mm). False when the progress broke it off. Throws
/// EInOutError when the device takes no more.
bool paintPages(QPagedPaintDevice& device, const PagedDocument& document, const PageList& pages, QPointF offset = {}, const PageProgress& progress = {});

/// Writes all pages as PDF with fonts embedded; the file is replaced in one step. Nothing is written when the progress broke
/// it off. Throws EInOutError.
void writePdf(const PagedDocument& document, const QString& file, const QString& title, const PageProgress& progress = {});

/// A page as a picture on white paper.
QImage pagePicture(const PagedDocument& document, int page, double dotsPerInch, bool withMarks = false);
