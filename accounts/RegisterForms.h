#pragma once

/// Makes the forms of this room known.
void RegisterAccountForms();
