// The list of scanner models and their pictures.
#pragma once

class DropDownList;
class QLabel;

// Adds the models of the catalogue to the list; an item's datum is the identifier of the model's picture.
void FillModelList(DropDownList& list);

// Shows the picture with that identifier (1000 to 1025), sharp on the label's screen; an unknown one clears the label.
void ShowModelPicture(QLabel& label, int pictureId);

// The identifier that the label shows; 0 for none.
[[nodiscard]] int ShownModelPicture(const QLabel& label);
