#pragma once

#include "toolkit/report/designer/page_places.h"
#include "toolkit/report/designer/report_editor.h"

/// What moving, resizing and arranging objects comes to. Locked objects stay as they are. Places are rounded to hundredths of
/// a millimetre, so that files hold no accidents of the mouse.
namespace Arranging {

enum class Edge { Left, Center, Right, Top, Middle, Bottom };

/// Moves objects on the paper, each within its parent.
PropertyChanges moved(const std::vector<ReportNode*>& objects, QPointF by);
/// Makes them wider and higher; nothing gets smaller than a tenth of a millimetre, lines may be as thin as they like.
PropertyChanges grown(const std::vector<ReportNode*>& objects, QSizeF by);
/// Gives one object a rectangle within its parent.
PropertyChanges placed(ReportNode& object, const QRectF& rect);
/// Stretches all objects as their common rectangle goes from one to the other; both on the paper.
PropertyChanges stretched(const std::vector<ReportNode*>& objects, const PagePlaces& places, const QRectF& from, const QRectF& to);
/// Lines objects up at an edge of their common rectangle; one alone at the edge of the page within its margins.
PropertyChanges aligned(const std::vector<ReportNode*>& objects, const PagePlaces& places, Edge edge);
/// Equal gaps between objects, the outer ones staying.
PropertyChanges distributed(const std::vector<ReportNode*>& objects, const PagePlaces& places, bool isAcross);
/// Gives all the size of the first one.
PropertyChanges sameSize(const std::vector<ReportNode*>& objects, bool width, bool height);

/// The common rectangle on the paper.
QRectF bounds(const std::vector<ReportNode*>& objects, const PagePlaces& places);
/// Hundredths of a millimetre.
double rounded(double millimetres);

enum class Order { Front, Forward, Backward, Back };
/// Brings objects nearer or farther within their parents, as one step.
void reorder(ReportEditor& editor, const QString& name, const std::vector<ReportNode*>& objects, Order order);

}  // namespace Arranging
