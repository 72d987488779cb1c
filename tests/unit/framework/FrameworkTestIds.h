// Ids of the resources in FrameworkTest.rc; read by the resource compiler too.
#pragma once

#define IDS_TEST_TEXT 101
#define IDS_TEST_UMLAUT 102
#define IDS_TEST_ABSENT 103
#define IDS_TEST_TRANSLATED 104
#define IDS_TEST_UNTRANSLATED 105
#define IDD_TEST 201
#define IDD_TEST_ABSENT 202
#define IDC_TEST_EDIT 301
#define IDC_TEST_CHECK 302
#define IDC_TEST_APPLY 303
