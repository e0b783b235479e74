#include "editor/forms/dlgGraphicOptions.h"

#include "ui/HelpContext.h"

namespace editor {

dlgGraphicOptions::dlgGraphicOptions(ui::Window& owner, const GraphicOptions& last)
    : Window(Kind::dialog, "dlgGraphicOptions", &owner), options(last) {
    setCaption("Insert Graphic Options");
    setHelpContext(ui::linkDialogHelp);
    arrange();
    fill();
    UI_ON(chkAlignment, Click);
    UI_ON(chkVertical, Click);
    UI_ON(chkHorizontal, Click);
    UI_ON(txtBorder, GotFocus);
    UI_ON(txtVertical, GotFocus);
    UI_ON(txtHorizontal, GotFocus);
    UI_ON(OKButton, Click);
    UI_ON(CancelButton, Click);
}

void dlgGraphicOptions::arrange() {
    for (const char* alignment : {"bottom", "middle", "top", "left", "right"}) {
        cboAlignment.add(alignment, alignment, "");
    }
    cboAlignment.setAccessibleName("Alignment");
    txtVertical.setAccessibleName("Vertical Spacing");
    txtHorizontal.setAccessibleName("Horizontal Spacing");
    auto spacing = ui::Layout::form();
    spacing.addField(chkVertical, txtVertical).addField(chkHorizontal, txtHorizontal);
    fraSpacing.setLayout(std::move(spacing));
    auto above = ui::Layout::form();
    above.addField(lblBorder, txtBorder).addField(chkAlignment, cboAlignment);
    auto below = ui::Layout::form();
    below.addField(lblTitle, txtTitle);
    auto buttons = ui::Layout::row();
    buttons.addStretch().add(OKButton).add(CancelButton);
    auto content = ui::Layout::column();
    content.add(std::move(above)).add(fraSpacing).add(std::move(below));
    content.addStretch().add(std::move(buttons));
    setLayout(std::move(content));
    setSize(5250, 4200);
    OKButton.setDefault();
    txtBorder.setFocus();
}

void dlgGraphicOptions::fill() {
    if (options.alignment.empty()) {
        options.alignment = "bottom";
    }
    txtBorder.setText(std::to_string(options.border));
    chkAlignment.setChecked(options.aligned);
    cboAlignment.select(options.alignment);
    chkVertical.setChecked(options.spacedVertically);
    txtVertical.setText(std::to_string(options.verticalSpacing));
    chkHorizontal.setChecked(options.spacedHorizontally);
    txtHorizontal.setText(std::to_string(options.horizontalSpacing));
    enableFields();
    txtBorder.selectAll();
}

void dlgGraphicOptions::enableFields() {
    cboAlignment.setEnabled(chkAlignment.checked());
    txtVertical.setEnabled(chkVertical.checked());
    txtHorizontal.setEnabled(chkHorizontal.checked());
}

void dlgGraphicOptions::OKButton_Click() {
    accepted = true;
    options.border = leadingNumber(txtBorder.text());
    options.aligned = chkAlignment.checked();
    options.alignment = cboAlignment.selectedKey();
    options.spacedVertically = chkVertical.checked();
    options.verticalSpacing = leadingNumber(txtVertical.text());
    options.spacedHorizontally = chkHorizontal.checked();
    options.horizontalSpacing = leadingNumber(txtHorizontal.text());
    options.title = txtTitle.text();
    close();
}

} // namespace editor
