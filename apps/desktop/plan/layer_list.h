// The layers of the plan, each with a box to show it or not.
#pragma once

#include <QListWidget>

#include "apps/desktop/plan/plan_view.h"

namespace plan {

class LayerList : public QListWidget {
  Q_OBJECT

 public:
  /// `view` must stay as long as the list.
  LayerList(PlanView& view, QWidget* parent = nullptr);

 private:
  void Refill();
  void Take(const QListWidgetItem* item);

  PlanView& view_;
};

}  // namespace plan
