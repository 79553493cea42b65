/* SPDX-License-Identifier: MIT */
/*
 * Prints a statement of a ledger kept as CSV, exact to the last place of every currency.
 *
 * Each line of the file carries amounts at scales of their own: a quantity, a unit price, a tax rate. Each product is
 * exact inside and rounded once, into the places of the line's currency; the tax is that of the rounded net:
 *
 *     net = quantity x unit price        tax = net x tax rate        gross = net + tax
 *
 * A line is posted wholly or not at all. Lines that cannot be posted are listed at the end of the statement with
 * their number, the field at fault and a status; they do not stop the run and do not change its exit status.
 * Money never passes through binary floating point.
 *
 * The library is called in read_amount, check_places, price_entry, accumulate, put_amount and put_difference. The rest
 * reads CSV and prints tables.
 */
#include <errno.h>
#include <qv8numeric.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const char heading[] = "date,account,description,quantity,unit price,tax rate,currency,places";

enum { DATE, ACCOUNT, DESCRIPTION, QUANTITY, UNIT_PRICE, TAX_RATE, CURRENCY, PLACES, FIELD_COUNT };

enum {
    LINE_LIMIT = 1000,  /* bytes in a line, its end not counted; a longer line is reported, never cut */
    DIGITS_READ = 41,   /* the parsers take at least so many digits of a number before they cut any off */
    EXCERPT_LIMIT = 24, /* bytes of the file shown with a fault */
    COLUMN_LIMIT = 8
};

enum { EXIT_USAGE = 2 };

/* ---- Rounding modes, currencies, statuses ---- */

enum { MODE_COUNT = NUMERIC_ROUND_HALF_EVEN + 1 };

static const char* const mode_names[MODE_COUNT] = {
    [NUMERIC_ROUND_UP] = "up",
    [NUMERIC_ROUND_DOWN] = "down",
    [NUMERIC_ROUND_CEILING] = "ceiling",
    [NUMERIC_ROUND_FLOOR] = "floor",
    [NUMERIC_ROUND_HALF_UP] = "half-up",
    [NUMERIC_ROUND_HALF_DOWN] = "half-down",
    [NUMERIC_ROUND_HALF_EVEN] = "half-even",
};

struct currency {
    const char* code;
    int32_t places;
};

/* In the order of the statement. */
static const struct currency currencies[] = {{"BHD", 3}, {"EUR", 2}, {"JPY", 0}, {"KWD", 3}, {"USD", 2}};

enum { CURRENCY_COUNT = sizeof currencies / sizeof currencies[0] };

static const char* status_name(NumericStatus status) {
    switch (status) {
        case NUMERIC_OK: return "NUMERIC_OK";
        case NUMERIC_NAN: return "NUMERIC_NAN";
        case NUMERIC_INEXACT: return "NUMERIC_INEXACT";
        case NUMERIC_OVERFLOW: return "NUMERIC_OVERFLOW";
        case NUMERIC_UNDERFLOW: return "NUMERIC_UNDERFLOW";
        case NUMERIC_SYNTAX_ERROR: return "NUMERIC_SYNTAX_ERROR";
        case NUMERIC_BUFFER_TOO_SMALL: return "NUMERIC_BUFFER_TOO_SMALL";
        case NUMERIC_INVALID_ARGUMENT: return "NUMERIC_INVALID_ARGUMENT";
        default: return "unknown status";
    }
}

/* NUMERIC_INEXACT is a success: the result is there, correctly rounded. A test for "not zero" would lose it. */
static int succeeded(NumericStatus status) { return status == NUMERIC_OK || status == NUMERIC_INEXACT; }

/* ---- Faults: why a line is left out ---- */

struct fault {
    unsigned long line;
    const char* field;
    NumericStatus status;
    const char* reason;
    char excerpt[EXCERPT_LIMIT + sizeof "''..."];
};

/* Quotes the start of a text from the file; bytes that could disturb a terminal become question marks. */
static void quote_excerpt(char* excerpt, size_t size, const char* text) {
    snprintf(excerpt, size, "'%.*s'%s", EXCERPT_LIMIT, text, strlen(text) > EXCERPT_LIMIT ? "..." : "");
    for (; *excerpt != '\0'; excerpt++) {
        if (*excerpt < ' ' || *excerpt > '~') {
            *excerpt = '?';
        }
    }
}

/*
 * Describes a fault; text is the part of the file it lies in, NULL for an amount that was computed. Always 0, so that
 * a function which finds a fault can describe it and fail in one statement.
 */
static int refuse(struct fault* fault, const char* field, NumericStatus status, const char* reason, const char* text) {
    fault->field = field;
    fault->status = status;
    fault->reason = reason;
    fault->excerpt[0] = '\0';
    if (text != NULL) {
        quote_excerpt(fault->excerpt, sizeof fault->excerpt, text);
    }
    return 0;
}

/* The one place that judges a computed amount. */
static int accept_amount(NumericStatus status, const char* name, struct fault* fault) {
    return succeeded(status) || refuse(fault, name, status, "outside 128 bits", NULL);
}

/* ---- Lines and their fields ---- */

struct line {
    unsigned long number;
    size_t length; /* of the line in the file; may be above LINE_LIMIT, text then holds its start */
    char text[LINE_LIMIT + sizeof "\r"];
};

/* Reads a line and takes off its end, "\n" or "\r\n" or that of the file. Returns 0 when there is no line. */
static int read_line(FILE* file, struct line* line) {
    size_t stored;
    int c = getc(file);

    if (c == EOF) return 0;
    line->number++;
    for (line->length = 0; c != EOF && c != '\n'; line->length++) {
        if (line->length < sizeof line->text - 1) {
            line->text[line->length] = (char)c;
        }
        c = getc(file);
    }
    stored = line->length < sizeof line->text ? line->length : sizeof line->text - 1;
    if (stored == line->length && stored > 0 && line->text[stored - 1] == '\r') {
        line->length = --stored;
    }
    line->text[stored] = '\0';
    return 1;
}

/* Takes off the quotes of a field in place. Returns what follows the closing quote, NULL when there is none. */
static char* unquote(char* field) {
    char* out = field;
    char* in = field + 1;

    for (; *in != '\0'; *out++ = *in++) {
        if (*in == '"' && *++in != '"') { /* two quotes stand for one, a single quote closes */
            *out = '\0';
            return in;
        }
    }
    return NULL;
}

/* Splits a line in place; the pointers into it are stored as far as there is room, all fields are counted. */
static int split_fields(char* text, char* fields[FIELD_COUNT], size_t* count, struct fault* fault) {
    char* field = text;

    for (*count = 1;; ++*count) {
        char* end = *field == '"' ? unquote(field) : field + strcspn(field, ",");
        if (end == NULL) return refuse(fault, "line", NUMERIC_SYNTAX_ERROR, "quote not closed", field);
        if (*end != ',' && *end != '\0') {
            return refuse(fault, "line", NUMERIC_SYNTAX_ERROR, "text after the closing quote", end);
        }
        if (*count <= FIELD_COUNT) {
            fields[*count - 1] = field;
        }
        if (*end == '\0') return 1;
        *end = '\0';
        field = end + 1;
    }
}

static int read_fields(struct line* line, char* fields[FIELD_COUNT], struct fault* fault) {
    size_t count;

    if (line->length > LINE_LIMIT) {
        return refuse(fault, "line", NUMERIC_BUFFER_TOO_SMALL, "line too long", line->text);
    }
    if (strlen(line->text) != line->length) {
        return refuse(fault, "line", NUMERIC_SYNTAX_ERROR, "NUL byte in the line", line->text);
    }
    if (!split_fields(line->text, fields, &count, fault)) return 0;
    return count == FIELD_COUNT || refuse(fault, "line", NUMERIC_SYNTAX_ERROR,
                                          count < FIELD_COUNT ? "too few fields" : "too many fields", NULL);
}

/* ---- Amounts as written in the file ---- */

typedef NumericStatus parser(const char* text, const NumericInfo* info, Numeric* result, char** end);

struct amount_field {
    const char* name;
    parser* parse;
    NumericInfo info;
};

/* An amount that would have to be rounded on reading is refused, so these rounding modes never decide anything. */
static const struct amount_field quantity_field = {"quantity", QV8NumericStr2Num, {4, NUMERIC_ROUND_DOWN}};
static const struct amount_field unit_price_field = {"unit price", QV8NumericDgstr2Num, {4, NUMERIC_ROUND_DOWN}};
static const struct amount_field tax_rate_field = {"tax rate", QV8NumericStr2Num, {2, NUMERIC_ROUND_DOWN}};
static const struct amount_field places_field = {"places", QV8NumericStr2Num, {0, NUMERIC_ROUND_DOWN}};

/* A percentage is a fraction two places further down: 20.50 and 0.2050 are the same coefficient, 2050. */
static const NumericInfo tax_rate_as_fraction = {4, NUMERIC_ROUND_DOWN};

static size_t count_digits(const char* text) {
    size_t count = 0;

    for (; *text != '\0'; text++) {
        count += *text >= '0' && *text <= '9';
    }
    return count;
}

/*
 * The one place that judges an amount from the file. The status alone would not do: an empty text is read as NaN
 * with NUMERIC_OK, and "12abc" as 12 with end at the "a". (After an exponent of four or more digits end stays at
 * the first of them, so such a number is refused as well.)
 */
static int read_amount(const struct amount_field* field, const char* text, Numeric* value, struct fault* fault) {
    char* end = NULL;
    NumericStatus status = field->parse(text, &field->info, value, &end);

    if (status == NUMERIC_SYNTAX_ERROR) return refuse(fault, field->name, status, "not a number", text);
    if (end == NULL) return refuse(fault, field->name, NUMERIC_NAN, "empty", text);
    if (*end != '\0') return refuse(fault, field->name, NUMERIC_SYNTAX_ERROR, "text after the number", text);
    if (!succeeded(status)) return refuse(fault, field->name, status, "outside 128 bits", text);
    if (status == NUMERIC_INEXACT || count_digits(text) > DIGITS_READ) {
        return refuse(fault, field->name, NUMERIC_INEXACT, "more places than are kept", text);
    }
    return 1;
}

/* ---- Entries: a line of the ledger, understood ---- */

struct entry {
    const char* account;
    Numeric quantity;
    Numeric unit_price;
    Numeric tax_rate;
    size_t currency; /* index into currencies */
};

static int has_control_character(const char* text) {
    for (; *text != '\0'; text++) {
        if ((unsigned char)*text < ' ' || *text == '\177') return 1;
    }
    return 0;
}

/* Blanks around a name are refused with the rest: they would make two accounts look like one. */
static int is_name(const char* text) {
    return *text != '\0' && *text != ' ' && text[strlen(text) - 1] != ' ' && !has_control_character(text);
}

static int check_account(const char* name, struct fault* fault) {
    return is_name(name) || refuse(fault, "account", NUMERIC_INVALID_ARGUMENT, "not a name", name);
}

static int read_currency(const char* code, size_t* currency, struct fault* fault) {
    for (*currency = 0; *currency < CURRENCY_COUNT; ++*currency) {
        if (strcmp(currencies[*currency].code, code) == 0) return 1;
    }
    return refuse(fault, "currency", NUMERIC_INVALID_ARGUMENT, "unknown currency", code);
}

/* The places are written beside the currency; an entry made for other places must not be posted. */
static int check_places(const char* text, const struct currency* currency, struct fault* fault) {
    Numeric written;
    Numeric expected;

    if (!read_amount(&places_field, text, &written, fault)) return 0;
    return (QV8NumericInt2Num(currency->places, &places_field.info, &expected) == NUMERIC_OK &&
            QV8NumericCmp(&written, &expected) == 0) ||
           refuse(fault, "places", NUMERIC_INVALID_ARGUMENT, "not the currency's places", text);
}

static int read_entry(struct line* line, struct entry* entry, struct fault* fault) {
    char* fields[FIELD_COUNT];

    if (!read_fields(line, fields, fault)) return 0;
    entry->account = fields[ACCOUNT];
    return check_account(entry->account, fault) &&
           read_amount(&quantity_field, fields[QUANTITY], &entry->quantity, fault) &&
           read_amount(&unit_price_field, fields[UNIT_PRICE], &entry->unit_price, fault) &&
           read_amount(&tax_rate_field, fields[TAX_RATE], &entry->tax_rate, fault) &&
           read_currency(fields[CURRENCY], &entry->currency, fault) &&
           check_places(fields[PLACES], &currencies[entry->currency], fault);
}

/* ---- Amounts in a currency ---- */

struct amounts {
    Numeric net;
    Numeric tax;
    Numeric gross;
};

/* What one entry, or the sum of many, comes to in one rounding mode. */
struct posting {
    struct amounts amounts;
    size_t inexact_net;
    size_t inexact_tax;
};

/* Each product is exact inside and rounded once, from the scales of its factors into that of the currency. */
static int price_entry(const struct entry* entry, uint32_t mode, struct posting* posting, struct fault* fault) {
    const NumericInfo money = {currencies[entry->currency].places, mode};
    struct amounts* amounts = &posting->amounts;
    NumericStatus status;

    status = QV8NumericRescalingMul(&quantity_field.info, &unit_price_field.info, &money, &entry->quantity,
                                    &entry->unit_price, &amounts->net);
    posting->inexact_net = status == NUMERIC_INEXACT;
    if (!accept_amount(status, "net", fault)) return 0;
    status =
        QV8NumericRescalingMul(&money, &tax_rate_as_fraction, &money, &amounts->net, &entry->tax_rate, &amounts->tax);
    posting->inexact_tax = status == NUMERIC_INEXACT;
    if (!accept_amount(status, "tax", fault)) return 0;
    return accept_amount(QV8NumericAdd(&amounts->net, &amounts->tax, &amounts->gross), "gross", fault);
}

/* The modes are compared over the same entries: one that does not fit in every mode is posted in none. */
static int price_in_every_mode(const struct entry* entry, struct posting postings[MODE_COUNT], struct fault* fault) {
    uint32_t mode;

    for (mode = 0; mode < MODE_COUNT; mode++) {
        if (!price_entry(entry, mode, &postings[mode], fault)) return 0;
    }
    return 1;
}

/* Sums are kept in place: the result of an operation may be one of its operands. */
static NumericStatus accumulate(struct amounts* sum, const struct amounts* amounts) {
    NumericStatus status = QV8NumericAdd(&sum->net, &amounts->net, &sum->net);

    if (status == NUMERIC_OK) {
        status = QV8NumericAdd(&sum->tax, &amounts->tax, &sum->tax);
    }
    if (status == NUMERIC_OK) {
        status = QV8NumericAdd(&sum->gross, &amounts->gross, &sum->gross);
    }
    return status;
}

/* ---- The ledger ---- */

struct account {
    char* name;
    size_t currency;
    size_t lines;
    struct amounts sum; /* in the mode of the statement */
};

struct currency_totals {
    size_t lines;
    struct posting by_mode[MODE_COUNT];
};

struct ledger {
    const char* file_name;
    uint32_t mode;
    size_t lines_read;
    size_t lines_posted;
    struct currency_totals currencies[CURRENCY_COUNT];
    struct account* accounts; /* in the order of the statement: by currency, then by name */
    size_t account_count;
    size_t account_capacity;
    struct fault* faults; /* as many as lines are left out */
    size_t fault_count;
    size_t fault_capacity;
};

static void* require_memory(void* memory) {
    if (memory == NULL) {
        fputs("ledger: out of memory\n", stderr);
        exit(EXIT_FAILURE);
    }
    return memory;
}

/* Makes room for at least one item more. */
static void* grow(void* items, size_t count, size_t* capacity, size_t item_size) {
    if (count < *capacity) return items;
    *capacity = count < 8 ? 16 : count * 2;
    return require_memory(*capacity <= SIZE_MAX / item_size ? realloc(items, *capacity * item_size) : NULL);
}

static char* copy_text(const char* text) {
    size_t size = strlen(text) + 1;

    return memcpy(require_memory(malloc(size)), text, size);
}

static int compare_account(const struct account* account, size_t currency, const char* name) {
    if (account->currency != currency) return account->currency < currency ? -1 : 1;
    return strcmp(account->name, name);
}

/* The index of the first account that does not come before the one looked for. */
static size_t account_position(const struct ledger* ledger, size_t currency, const char* name) {
    size_t low = 0;
    size_t high = ledger->account_count;

    while (low < high) {
        size_t middle = low + (high - low) / 2;
        if (compare_account(&ledger->accounts[middle], currency, name) < 0) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

static void insert_account(struct ledger* ledger, size_t position, size_t currency, const char* name) {
    const struct account opened = {copy_text(name), currency, 0, {{0, 0}, {0, 0}, {0, 0}}};
    struct account* at;

    ledger->accounts =
        grow(ledger->accounts, ledger->account_count, &ledger->account_capacity, sizeof *ledger->accounts);
    at = ledger->accounts + position;
    memmove(at + 1, at, (ledger->account_count - position) * sizeof *at);
    *at = opened;
    ledger->account_count++;
}

static struct account* open_account(struct ledger* ledger, size_t currency, const char* name) {
    size_t position = account_position(ledger, currency, name);

    if (position == ledger->account_count || compare_account(&ledger->accounts[position], currency, name) != 0) {
        insert_account(ledger, position, currency, name);
    }
    return &ledger->accounts[position];
}

static int add_to_totals(struct currency_totals* totals, const struct posting postings[MODE_COUNT],
                         struct fault* fault) {
    uint32_t mode;

    for (mode = 0; mode < MODE_COUNT; mode++) {
        struct posting* total = &totals->by_mode[mode];
        if (!accept_amount(accumulate(&total->amounts, &postings[mode].amounts), "currency total", fault)) return 0;
        total->inexact_net += postings[mode].inexact_net;
        total->inexact_tax += postings[mode].inexact_tax;
    }
    totals->lines++;
    return 1;
}

/* Adds on copies and puts them back when every sum has fitted, for a sum that overflows is NaN afterwards. */
static int post(struct ledger* ledger, const struct entry* entry, const struct posting postings[MODE_COUNT],
                struct fault* fault) {
    struct currency_totals totals = ledger->currencies[entry->currency];
    struct account* account;
    struct amounts sum;

    if (!add_to_totals(&totals, postings, fault)) return 0;
    account = open_account(ledger, entry->currency, entry->account); /* one opened just now cannot overflow */
    sum = account->sum;
    if (!accept_amount(accumulate(&sum, &postings[ledger->mode].amounts), "account total", fault)) return 0;
    account->sum = sum;
    account->lines++;
    ledger->currencies[entry->currency] = totals;
    return 1;
}

static void record_fault(struct ledger* ledger, const struct fault* fault) {
    ledger->faults = grow(ledger->faults, ledger->fault_count, &ledger->fault_capacity, sizeof *ledger->faults);
    ledger->faults[ledger->fault_count++] = *fault;
}

static void process_line(struct ledger* ledger, struct line* line) {
    struct posting postings[MODE_COUNT];
    struct entry entry;
    struct fault fault;

    ledger->lines_read++;
    if (read_entry(line, &entry, &fault) && price_in_every_mode(&entry, postings, &fault) &&
        post(ledger, &entry, postings, &fault)) {
        ledger->lines_posted++;
    } else {
        fault.line = line->number;
        record_fault(ledger, &fault);
    }
}

static void close_ledger(struct ledger* ledger) {
    size_t i;

    for (i = 0; i < ledger->account_count; i++) {
        free(ledger->accounts[i].name);
    }
    free(ledger->accounts);
    free(ledger->faults);
}

/* ---- The file ---- */

/* Lines that begin with "#" are comments and count as no line of the ledger. */
static int read_content(FILE* file, struct line* line) {
    while (read_line(file, line)) {
        if (line->text[0] != '#') return 1;
    }
    return 0;
}

static int report_file(const char* name, const char* problem) {
    fprintf(stderr, "ledger: %s: %s\n", name, problem);
    return 0;
}

static int read_lines(FILE* file, struct ledger* ledger) {
    struct line line = {0, 0, ""};

    errno = 0;
    if (!read_content(file, &line)) {
        return report_file(ledger->file_name, ferror(file) ? strerror(errno) : "the file holds no heading");
    }
    if (strcmp(line.text, heading) != 0) {
        return report_file(ledger->file_name, "the first line is not the heading of a ledger (see --help)");
    }
    while (read_content(file, &line)) {
        process_line(ledger, &line);
    }
    return !ferror(file) || report_file(ledger->file_name, strerror(errno));
}

static int read_file(struct ledger* ledger) {
    FILE* file = fopen(ledger->file_name, "rb");
    int done;

    if (file == NULL) return report_file(ledger->file_name, strerror(errno));
    done = read_lines(file, ledger);
    fclose(file);
    return done;
}

/* ---- Tables: written twice, first to measure and then to print ---- */

struct column {
    const char* heading;
    int right_aligned;
};

struct table {
    const struct column* columns;
    size_t column_count;
    size_t widths[COLUMN_LIMIT];
    size_t next;   /* the column of the next cell */
    size_t blanks; /* owed before the next text, so that no line ends in blanks */
    int printing;
};

/* Characters of UTF-8 text: its continuation bytes take no column of their own. */
static size_t text_width(const char* text) {
    size_t width = 0;

    for (; *text != '\0'; text++) {
        width += ((unsigned char)*text & 0xC0) != 0x80;
    }
    return width;
}

static void put_blanks(size_t count) {
    for (; count > 0; count--) {
        putchar(' ');
    }
}

static void print_cell(struct table* table, const char* text) {
    size_t padding = table->widths[table->next] - text_width(text);
    int right_aligned = table->columns[table->next].right_aligned;

    table->blanks += right_aligned ? 2 + padding : 2;
    if (*text != '\0') {
        put_blanks(table->blanks);
        fputs(text, stdout);
        table->blanks = 0;
    }
    table->blanks += right_aligned ? 0 : padding;
    if (table->next + 1 == table->column_count) {
        putchar('\n');
        table->blanks = 0;
    }
}

static void put_cell(struct table* table, const char* text) {
    size_t width = text_width(text);

    if (table->printing) {
        print_cell(table, text);
    } else if (width > table->widths[table->next]) {
        table->widths[table->next] = width;
    }
    table->next = (table->next + 1) % table->column_count;
}

/* The buffer holds every text of 0 to 38 places, so anything but the amount here would be a defect: show it. */
static void put_amount(struct table* table, const Numeric* amount, int32_t places) {
    const NumericInfo info = {places, NUMERIC_ROUND_HALF_EVEN};
    char text[QV8NUMERIC_GROUPED_TEXT_SIZE(0, 38)];
    NumericStatus status = QV8NumericNum2Dgstr(amount, &info, 0, places, text, sizeof text);

    put_cell(table, status == NUMERIC_OK ? text : status_name(status));
}

static void put_count(struct table* table, size_t count) {
    char text[24];

    snprintf(text, sizeof text, "%zu", count);
    put_cell(table, text);
}

static void put_amounts(struct table* table, const struct amounts* amounts, int32_t places) {
    put_amount(table, &amounts->net, places);
    put_amount(table, &amounts->tax, places);
    put_amount(table, &amounts->gross, places);
}

static void put_gap(const struct table* table) {
    if (table->printing) {
        putchar('\n');
    }
}

static void put_headings(struct table* table) {
    size_t i;

    for (i = 0; i < table->column_count; i++) {
        put_cell(table, table->columns[i].heading);
    }
}

static void put_rule(struct table* table) {
    size_t i;
    size_t dash;

    for (i = 0; table->printing && i < table->column_count; i++) {
        put_blanks(2);
        for (dash = 0; dash < table->widths[i]; dash++) {
            putchar('-');
        }
    }
    put_gap(table);
}

static void print_table(const struct ledger* ledger, const struct column* columns, size_t column_count,
                        void (*put_rows)(struct table* table, const struct ledger* ledger)) {
    struct table table = {columns, column_count, {0}, 0, 0, 0};

    for (table.printing = 0; table.printing < 2; table.printing++) {
        put_headings(&table);
        put_rule(&table);
        put_rows(&table, ledger);
    }
}

/* ---- The statement ---- */

static size_t put_accounts_of(struct table* table, const struct ledger* ledger, size_t currency, size_t i) {
    for (; i < ledger->account_count && ledger->accounts[i].currency == currency; i++) {
        const struct account* account = &ledger->accounts[i];
        put_cell(table, currencies[currency].code);
        put_cell(table, account->name);
        put_count(table, account->lines);
        put_amounts(table, &account->sum, currencies[currency].places);
    }
    return i;
}

static void put_account_rows(struct table* table, const struct ledger* ledger) {
    size_t currency;
    size_t i = 0;

    for (currency = 0; currency < CURRENCY_COUNT; currency++) {
        const struct currency_totals* totals = &ledger->currencies[currency];
        if (totals->lines == 0) continue;
        i = put_accounts_of(table, ledger, currency, i);
        put_cell(table, currencies[currency].code);
        put_cell(table, "all accounts");
        put_count(table, totals->lines);
        put_amounts(table, &totals->by_mode[ledger->mode].amounts, currencies[currency].places);
        put_gap(table);
    }
}

static void print_accounts(const struct ledger* ledger) {
    static const struct column columns[] = {{"Currency", 0}, {"Account", 0}, {"Lines", 1},
                                            {"Net", 1},      {"Tax", 1},     {"Gross", 1}};

    printf("Amounts by account, rounded %s\n\n", mode_names[ledger->mode]);
    print_table(ledger, columns, sizeof columns / sizeof columns[0], put_account_rows);
}

static void put_difference(struct table* table, const Numeric* amount, const Numeric* base, int32_t places) {
    Numeric difference;
    NumericStatus status = QV8NumericSub(amount, base, &difference);

    if (succeeded(status)) {
        put_amount(table, &difference, places);
    } else {
        put_cell(table, status_name(status));
    }
}

static void put_mode_row(struct table* table, const struct ledger* ledger, size_t currency, uint32_t mode) {
    const struct posting* total = &ledger->currencies[currency].by_mode[mode];
    const struct posting* stated = &ledger->currencies[currency].by_mode[ledger->mode];
    int32_t places = currencies[currency].places;

    put_cell(table, currencies[currency].code);
    put_cell(table, mode_names[mode]);
    put_amounts(table, &total->amounts, places);
    put_difference(table, &total->amounts.gross, &stated->amounts.gross, places);
    put_count(table, total->inexact_net);
    put_count(table, total->inexact_tax);
}

static void put_mode_rows(struct table* table, const struct ledger* ledger) {
    size_t currency;
    uint32_t mode;

    for (currency = 0; currency < CURRENCY_COUNT; currency++) {
        if (ledger->currencies[currency].lines == 0) continue;
        for (mode = 0; mode < MODE_COUNT; mode++) {
            put_mode_row(table, ledger, currency, mode);
        }
        put_gap(table);
    }
}

static void print_modes(const struct ledger* ledger) {
    static const struct column columns[] = {{"Currency", 0}, {"Rounding", 0},   {"Net", 1},         {"Tax", 1},
                                            {"Gross", 1},    {"Difference", 1}, {"Inexact net", 1}, {"Inexact tax", 1}};

    printf("Totals in every rounding mode; the difference is that of the gross amount to %s\n\n",
           mode_names[ledger->mode]);
    print_table(ledger, columns, sizeof columns / sizeof columns[0], put_mode_rows);
}

static void put_fault_rows(struct table* table, const struct ledger* ledger) {
    size_t i;

    for (i = 0; i < ledger->fault_count; i++) {
        const struct fault* fault = &ledger->faults[i];
        put_count(table, fault->line);
        put_cell(table, fault->field);
        put_cell(table, status_name(fault->status));
        put_cell(table, fault->reason);
        put_cell(table, fault->excerpt);
    }
}

static void print_faults(const struct ledger* ledger) {
    static const struct column columns[] = {{"Line", 1}, {"Field", 0}, {"Status", 0}, {"Reason", 0}, {"Text", 0}};

    printf("Lines left out\n\n");
    print_table(ledger, columns, sizeof columns / sizeof columns[0], put_fault_rows);
}

static void print_summary(const struct ledger* ledger) {
    size_t net = 0;
    size_t tax = 0;
    size_t currency;

    for (currency = 0; currency < CURRENCY_COUNT; currency++) {
        net += ledger->currencies[currency].by_mode[ledger->mode].inexact_net;
        tax += ledger->currencies[currency].by_mode[ledger->mode].inexact_tax;
    }
    printf("Ledger     %s\n", ledger->file_name);
    printf("Rounding   %s\n", mode_names[ledger->mode]);
    printf("Lines      %zu read, %zu posted, %zu left out\n", ledger->lines_read, ledger->lines_posted,
           ledger->fault_count);
    printf("Roundings  %zu made, %zu inexact (net %zu, tax %zu)\n\n", 2 * ledger->lines_posted, net + tax, net, tax);
}

static void print_statement(const struct ledger* ledger) {
    print_summary(ledger);
    if (ledger->lines_posted == 0) {
        puts("No line was posted.\n");
    } else {
        print_accounts(ledger);
        print_modes(ledger);
    }
    if (ledger->fault_count == 0) {
        puts("No line was left out.");
    } else {
        print_faults(ledger);
    }
}

/* ---- The command line ---- */

static void print_usage(FILE* out) {
    uint32_t mode;

    fputs(
        "Usage: ledger FILE.csv [MODE]\n"
        "       ledger --help\n"
        "\n"
        "Prints the statement of a ledger, rounded half-even or in the MODE given:\n",
        out);
    for (mode = 0; mode < MODE_COUNT; mode++) {
        fprintf(out, "%s%s", mode == 0 ? "  " : ", ", mode_names[mode]);
    }
    fprintf(out,
            "\n"
            "\n"
            "The file begins with the heading\n"
            "  %s\n"
            "and holds lines of at most %d bytes. Lines that begin with # are comments.\n"
            "\n"
            "Exit status: 0 when a statement was printed, also with lines left out;\n"
            "1 when the file cannot be read or the statement not be written; 2 on wrong usage.\n",
            heading, LINE_LIMIT);
}

static int fail_usage(const char* problem, const char* argument) {
    fprintf(stderr, "ledger: %s%s\n\n", problem, argument);
    print_usage(stderr);
    return EXIT_USAGE;
}

static int find_mode(const char* name, uint32_t* mode) {
    for (*mode = 0; *mode < MODE_COUNT; ++*mode) {
        if (strcmp(mode_names[*mode], name) == 0) return 1;
    }
    return 0;
}

static int run(const char* file_name, uint32_t mode) {
    struct ledger ledger = {0};
    int done;

    ledger.file_name = file_name;
    ledger.mode = mode;
    done = read_file(&ledger);
    if (done) {
        print_statement(&ledger);
        done = (fflush(stdout) == 0 && !ferror(stdout)) || report_file("standard output", strerror(errno));
    }
    close_ledger(&ledger);
    return done ? EXIT_SUCCESS : EXIT_FAILURE;
}

int main(int argc, char** argv) {
    uint32_t mode = NUMERIC_ROUND_HALF_EVEN;

    if (argc == 2 && strcmp(argv[1], "--help") == 0) {
        print_usage(stdout);
        return EXIT_SUCCESS;
    }
    if (argc < 2) return fail_usage("no file given", "");
    if (argc > 3) return fail_usage("more than a file and a mode: ", argv[3]);
    if (argv[1][0] == '-') return fail_usage("unknown option: ", argv[1]);
    if (argc == 3 && !find_mode(argv[2], &mode)) return fail_usage("unknown rounding mode: ", argv[2]);
    return run(argv[1], mode);
}
