#pragma once

// Ids of framework_test.rc.

#define IDD_FORM 200
#define IDD_PLACED_FORM 201
#define IDD_TAB_MAIN 202
#define IDD_PAGE 203
#define IDD_PLAIN_FORM 204
#define IDD_BARE_TABS 205
#define IDD_BARE_PAGE 206

#define IDC_NOTE 10
#define IDC_FIELD 11
#define IDC_TABS 12
#define IDC_PAGE_FIELD 13
