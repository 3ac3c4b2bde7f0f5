#pragma once

// Ids of the module's resources; also read by the resource compiler.

#define IDD_ABOUT 104
#define IDD_ABOUT_PAGE 130
#define IDB_LOGO 133

// Controls of IDD_ABOUT.
#define IDC_ABOUT_TAB 105

// Controls of IDD_ABOUT_PAGE.
#define IDC_PRODUCT_TEXT 124
#define IDC_LOGO 125
