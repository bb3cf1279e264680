#include "bulk/sort_dialog_model.h"

#include "core/app.h"

namespace nebkaro {

void loadSortDialog(App& app) {
    app.sortDialog.loaded = true;
    app.sortDialog.sortField = SortField::None;
}

void sortDialogOk(App& app) {
    SortDialogState& d = app.sortDialog;
    d.sortField = SortField::None;
    for (const SortOption& o : SortOptions)
        if (d.option == o.value) d.sortField = o.value;
}

void sortDialogCancel(App& app) {
    app.sortDialog.sortField = SortField::None;
}

SortField showSortDialog(App& app) {
    if (!app.sortDialog.loaded) loadSortDialog(app);
    app.windows->showSortDialog();
    return app.sortDialog.sortField;
}

} // namespace nebkaro
