/*
 * A host written in C: it loads the component through its C interface and
 * checks what the demo practice database answers. Usage: c_host DATABASE
 * [window|no-display]. Exits 0 when every check holds, 1 otherwise, naming
 * each failed check.
 *
 * With "window" it also opens the fee-entry window through
 * ShowDialogParcellazione, as a host without any Qt application of its own
 * does (the test runs it on Qt's offscreen platform and has the window
 * closed after a moment); with "no-display" it checks that the same call
 * without a display fails with one clear message.
 */
#include <stdio.h>
#include <string.h>

#include "avlor/avlorlogic.h"

static int failures = 0;

static void expect_text(const char* what, const char* got, const char* wanted)
{
    if (got == NULL || strcmp(got, wanted) != 0) {
        fprintf(stderr, "FAILED %s: got \"%s\", wanted \"%s\"\n", what, got ? got : "(null)", wanted);
        ++failures;
    }
}

static void expect_status(const char* what, int got, int wanted)
{
    if (got != wanted) {
        fprintf(stderr, "FAILED %s: status %d, wanted %d (%s)\n", what, got, wanted, avlor_last_error());
        ++failures;
    }
}

static char last_message[512];
static char last_title[64];

static int record_message(const char* text, const char* title, void* user_data)
{
    int* count = (int*)user_data;
    ++*count;
    snprintf(last_message, sizeof last_message, "%s", text);
    snprintf(last_title, sizeof last_title, "%s", title);
    return 0;
}

/* ShowDialogParcellazione on case file 1 of the demo firm. */
static int show_dialog(void)
{
    avlor_object* parcella = NULL;
    expect_status("create ClsParcella for the dialog", avlor_create("AvlorLogic.ClsParcella", &parcella), AVLOR_OK);
    avlor_value* args[4];
    args[0] = avlor_value_long(1);
    args[1] = avlor_value_text("Rossi Mario / Bianchi SpA");
    args[2] = avlor_value_text("Udienza di trattazione");
    args[3] = avlor_value_text("17/03/2025");
    avlor_value* result = NULL;
    const int status = avlor_call(parcella, "ShowDialogParcellazione", args, 4, &result);
    avlor_value_free(result);
    for (int i = 0; i < 4; ++i)
        avlor_value_free(args[i]);
    avlor_release(parcella);
    return status;
}

static void check_window(void)
{
    int shown = 0;
    avlor_set_message_callback(record_message, &shown);
    /* Twice: each call makes its dialog (and its Qt application) afresh. */
    expect_status("ShowDialogParcellazione", show_dialog(), AVLOR_OK);
    expect_status("ShowDialogParcellazione again", show_dialog(), AVLOR_OK);

    /* The host's message callback is in force again once the window is gone. */
    avlor_object* parcella = NULL;
    expect_status("create ClsParcella after the dialog", avlor_create("AvlorLogic.ClsParcella", &parcella), AVLOR_OK);
    avlor_value* args[10];
    args[0] = avlor_value_currency("5200");
    args[1] = avlor_value_long(50);
    args[2] = avlor_value_text("OnorariStrag2004Euro");
    args[3] = avlor_value_boolean(0);
    args[4] = avlor_value_long(99);
    for (int i = 5; i < 9; ++i)
        args[i] = avlor_value_currency("0");
    args[9] = avlor_value_text("");
    avlor_value* result = NULL;
    expect_status("CalcolaTariffa after the dialog", avlor_call(parcella, "CalcolaTariffa", args, 10, &result),
                  AVLOR_OK);
    if (shown != 1) {
        fprintf(stderr, "FAILED message callback after the dialog: %d messages\n", shown);
        ++failures;
    }
    avlor_value_free(result);
    for (int i = 0; i < 10; ++i)
        avlor_value_free(args[i]);
    avlor_release(parcella);
    avlor_set_message_callback(NULL, NULL);
}

static void check_no_display(void)
{
    expect_status("ShowDialogParcellazione without a display", show_dialog(), AVLOR_FAILED);
    expect_text("no display message", avlor_last_error(),
                "Il dialogo \"Parcellazione Adempimento\" non si pu\xC3\xB2 mostrare: non c'\xC3\xA8 uno schermo "
                "(DISPLAY, WAYLAND_DISPLAY e QT_QPA_PLATFORM non sono impostate).");
}

int main(int argc, char** argv)
{
    if (argc != 2 && argc != 3) {
        fprintf(stderr, "usage: c_host DATABASE [window|no-display]\n");
        return 2;
    }
    if (argc == 3) {
        expect_status("set database", avlor_set_database(argv[1]), AVLOR_OK);
        if (strcmp(argv[2], "window") == 0) {
            check_window();
        } else if (strcmp(argv[2], "no-display") == 0) {
            check_no_display();
        } else {
            fprintf(stderr, "usage: c_host DATABASE [window|no-display]\n");
            return 2;
        }
        if (failures == 0)
            printf("c_host %s: all checks passed\n", argv[2]);
        return failures == 0 ? 0 : 1;
    }
    expect_status("set database", avlor_set_database(argv[1]), AVLOR_OK);

    avlor_object* utenti = NULL;
    expect_status("create clsUtenti", avlor_create("AvlorLogic.clsUtenti", &utenti), AVLOR_OK);

    /* The case-file filter of user 3, who is in the groups Civile and Tutti. */
    avlor_value* id = avlor_value_long(3);
    avlor_value* result = NULL;
    expect_status("GetSqlFiltroPratiche", avlor_call(utenti, "GetSqlFiltroPratiche", &id, 1, &result), AVLOR_OK);
    expect_text("GetSqlFiltroPratiche(3)", avlor_value_as_text(result),
                "((Id_Riservata IN (0,3))  AND (fk_Gruppo IS NULL))  OR ((Id_Riservata=0) AND (fk_Gruppo IN "
                "('Civile')))");
    avlor_value_free(result);

    /* The groups of user 5, a collection of two texts. */
    avlor_value* five = avlor_value_text("5");
    expect_status("GetGruppiUtente", avlor_call(utenti, "GetGruppiUtente", &five, 1, &result), AVLOR_OK);
    if (avlor_value_kind(result) != AVLOR_COLLECTION || avlor_value_count(result) != 2) {
        fprintf(stderr, "FAILED GetGruppiUtente(5): not a collection of 2\n");
        ++failures;
    } else {
        expect_text("group 1", avlor_value_as_text(avlor_value_item(result, 1)), "AMMINISTRAZIONE");
        expect_text("group 2", avlor_value_as_text(avlor_value_item(result, 2)), "Penale");
    }
    avlor_value_free(result);
    avlor_value_free(five);
    avlor_value_free(id);

    /* A wrong operation name is reported, not crashed on. */
    expect_status("unknown operation", avlor_call(utenti, "Cancella", NULL, 0, &result), AVLOR_FAILED);
    expect_text(
        "unknown operation message", avlor_last_error(),
        "La classe AvlorLogic.clsUtenti non ha un'operazione di nome 'Cancella' (le sue operazioni: "
        "GetSqlRiservatezza, GetLivelloRiservatezza, GetGruppiUtente, GetUtentiDelGruppo, GetSqlFiltroPratiche, "
        "IsUtenteContabilita, UtenteInGruppo, GetIdOfCurrentUser, GetSqlFiltroAnagrafiche)");
    avlor_release(utenti);

    /* Pricing: out-of-court item 10 at 5,200 euro, importance 50. */
    avlor_object* parcella = NULL;
    expect_status("create ClsParcella", avlor_create("AvlorLogic.ClsParcella", &parcella), AVLOR_OK);
    avlor_value* args[10];
    args[0] = avlor_value_currency("5200");
    args[1] = avlor_value_long(50);
    args[2] = avlor_value_text("OnorariStrag2004Euro");
    args[3] = avlor_value_boolean(0);
    args[4] = avlor_value_long(10);
    args[5] = avlor_value_currency("0");
    args[6] = avlor_value_currency("0");
    args[7] = avlor_value_currency("0");
    args[8] = avlor_value_currency("0");
    args[9] = avlor_value_text("");
    expect_status("CalcolaTariffa", avlor_call(parcella, "CalcolaTariffa", args, 10, &result), AVLOR_OK);
    expect_text("CalcolaTariffa result", avlor_value_as_amount(result), "234.0000");
    expect_text("MinTar", avlor_value_as_amount(args[5]), "156.0000");
    expect_text("MaxTar", avlor_value_as_amount(args[6]), "312.0000");
    avlor_value_free(result);

    /* Nothing to propose: the host's callback receives the message. */
    int shown = 0;
    avlor_set_message_callback(record_message, &shown);
    avlor_value_free(args[4]);
    args[4] = avlor_value_long(99);
    expect_status("CalcolaTariffa item 99", avlor_call(parcella, "CalcolaTariffa", args, 10, &result), AVLOR_OK);
    expect_text("item 99 result", avlor_value_as_amount(result), "0.0000");
    if (shown != 1) {
        fprintf(stderr, "FAILED message count: %d\n", shown);
        ++failures;
    }
    expect_text("message title", last_title, "Attenzione");
    expect_text("message text", last_message,
                " codice <> non previsto per una pratica di questo valore.\rNessun valore proposto.");
    avlor_set_message_callback(NULL, NULL);
    avlor_value_free(result);
    for (int i = 0; i < 10; ++i)
        avlor_value_free(args[i]);
    avlor_release(parcella);

    /* A count of the demo firm: case file 1 has two clients, so 3. */
    avlor_object* pratica = NULL;
    expect_status("create clsPratica", avlor_create("AvlorLogic.clsPratica", &pratica), AVLOR_OK);
    avlor_value* one = avlor_value_long(1);
    expect_status("QuantiClientiPerPratica", avlor_call(pratica, "QuantiClientiPerPratica", &one, 1, &result),
                  AVLOR_OK);
    int32_t count = 0;
    expect_status("count as long", avlor_value_as_long(result, &count), AVLOR_OK);
    if (count != 3) {
        fprintf(stderr, "FAILED QuantiClientiPerPratica(1): %d\n", (int)count);
        ++failures;
    }
    avlor_value_free(result);
    avlor_value_free(one);
    avlor_release(pratica);

    /* An unknown class. */
    avlor_object* none = NULL;
    expect_status("unknown class", avlor_create("AvlorLogic.clsNessuna", &none), AVLOR_FAILED);
    expect_text("unknown class message", avlor_last_error(),
                "Nessuna classe \xC3\xA8 registrata col nome 'AvlorLogic.clsNessuna' (le classi: "
                "AvlorLogic.ClsParcella, AvlorLogic.clsUtenti, AvlorLogic.clsPratica, AvlorLogic.clsDataBase, "
                "AvlorLogic.clsAnagrafica, AvlorLogic.clsFatture, AvlorLogic.clsParametri)");

    if (failures == 0)
        printf("c_host: all checks passed\n");
    return failures == 0 ? 0 : 1;
}
