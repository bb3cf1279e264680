#include "bulk/sort_dialog_model.h"

#include "core/app.h"

namespace nebkaro {

void LoadSortDialog(App& app) {
    app.sortDialog.loaded = true;
    app.sortDialog.sortField = SortField::None;
}

void SortDialogOk(App& app) {
    SortDialogState& d = app.sortDialog;
    d.sortField = SortField::None;
    for (const SortOption& o : SortOptions)
        if (d.option == o.value) d.sortField = o.value;
}

void SortDialogCancel(App& app) {
    app.sortDialog.sortField = SortField::None;
}

SortField ShowSortDialog(App& app) {
    if (!app.sortDialog.loaded) LoadSortDialog(app);
    app.windows->showSortDialog();
    return app.sortDialog.sortField;
}

} // namespace nebkaro
