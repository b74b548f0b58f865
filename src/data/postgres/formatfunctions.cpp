#include "data/postgres/functionscript.h"

namespace data::postgres {

// Values as texts by Greek rules: what format.h promises, on the server.
const char formatFunctions[] = R"sql(
CREATE OR REPLACE FUNCTION jet_lcase(value text) RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT jet_lowerletters(regexp_replace(value, '([a-zA-Zα-ωΑ-Ωά-ώΆ-ΏϊϋΐΰΪΫ])Σ(?![a-zA-Zα-ωΑ-Ωά-ώΆ-ΏϊϋΐΰΪΫ])',
                                           '\1ς', 'g')) $$;

CREATE OR REPLACE FUNCTION jet_monthname(number float8, brief boolean DEFAULT false) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN brief THEN (ARRAY['Ιαν', 'Φεβ', 'Μαρ', 'Απρ', 'Μαϊ', 'Ιουν', 'Ιουλ', 'Αυγ', 'Σεπ', 'Οκτ', 'Νοε',
                                       'Δεκ'])[jet_count(number)]
        ELSE (ARRAY['Ιανουάριος', 'Φεβρουάριος', 'Μάρτιος', 'Απρίλιος', 'Μάιος', 'Ιούνιος', 'Ιούλιος', 'Αύγουστος',
                    'Σεπτέμβριος', 'Οκτώβριος', 'Νοέμβριος', 'Δεκέμβριος'])[jet_count(number)] END $$;

CREATE OR REPLACE FUNCTION jet_monthgenitive(number integer) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT (ARRAY['Ιανουαρίου', 'Φεβρουαρίου', 'Μαρτίου', 'Απριλίου', 'Μαΐου', 'Ιουνίου', 'Ιουλίου', 'Αυγούστου',
                  'Σεπτεμβρίου', 'Οκτωβρίου', 'Νοεμβρίου', 'Δεκεμβρίου'])[number] $$;

-- From 0, Sunday.
CREATE OR REPLACE FUNCTION jet_dayname(number integer, brief boolean) RETURNS text
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN brief THEN (ARRAY['Κυρ', 'Δευ', 'Τρί', 'Τετ', 'Πέμ', 'Παρ', 'Σαβ'])[number + 1]
        ELSE (ARRAY['Κυριακή', 'Δευτέρα', 'Τρίτη', 'Τετάρτη', 'Πέμπτη', 'Παρασκευή', 'Σάββατο'])[number + 1] END $$;

CREATE OR REPLACE FUNCTION jet_weekdayname(number float8, brief boolean DEFAULT false, first float8 DEFAULT 1)
RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN jet_whole(number) BETWEEN 1 AND 7
        THEN jet_dayname((jet_whole(number)::integer - 1 + jet_firstday(first) - 1) % 7, brief) END $$;

-- Plain digits as far as people read them, powers of ten beyond.
CREATE OR REPLACE FUNCTION jet_numbertext(value float8) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    exact numeric;
    power integer;
BEGIN
    IF value = 0 THEN RETURN '0'; END IF;
    exact := value::numeric;  -- 15 digits
    IF abs(value) < 1e21 AND abs(value) >= 1e-10 THEN RETURN replace(trim_scale(exact)::text, '.', ','); END IF;
    power := floor(log(abs(exact)));
    IF abs(exact) >= ('1e' || (power + 1))::numeric THEN power := power + 1; END IF;
    RETURN replace(trim_scale(exact * ('1e' || -power)::numeric)::text, '.', ',') || 'E' || power;
END $$;

CREATE OR REPLACE FUNCTION jet_yesnotext(value boolean) RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN value THEN 'True' ELSE 'False' END $$;

CREATE OR REPLACE FUNCTION jet_datetext(at timestamp) RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN at::time = '00:00' THEN to_char(at, 'DD/MM/YYYY')
        WHEN at::date = '1899-12-30' THEN to_char(at, 'HH24:MI:SS') ELSE to_char(at, 'DD/MM/YYYY HH24:MI:SS') END $$;

CREATE OR REPLACE FUNCTION jet_isdatepattern(pattern text) RETURNS boolean
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT pattern <> 'general number' AND regexp_replace(pattern, '\\.|"[^"]*"', '', 'g') ~* '[dmyhns]' $$;

-- "m" is a month, unless it stands next to an hour or before a second.
CREATE OR REPLACE FUNCTION jet_formatdate(at timestamp, pattern text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    tokens text[] := ARRAY(SELECT m[1] FROM regexp_matches(pattern, '(\\.|"[^"]*"|AM/PM|d+|m+|y+|h+|n+|s+|.)', 'gi') m);
    twelve boolean := false;
    after_day boolean := false;
    before text := '';
    token text;
    kind text;
    next text;
    size integer;
    result text := '';
    h integer := jet_hour(at);
BEGIN
    IF pattern = 'general date' THEN RETURN jet_datetext(at); END IF;
    FOREACH token IN ARRAY tokens LOOP twelve := twelve OR lower(token) = 'am/pm'; END LOOP;
    IF twelve THEN h := (h + 11) % 12 + 1; END IF;
    FOR i IN 1 .. coalesce(array_length(tokens, 1), 0) LOOP
        token := tokens[i];
        size := length(token);
        kind := lower(left(token, 1));
        IF lower(token) = 'am/pm' THEN
            result := result || CASE WHEN jet_hour(at) < 12 THEN 'πμ' ELSE 'μμ' END;
            before := 'ap';
            CONTINUE;
        END IF;
        IF kind NOT IN ('d', 'm', 'y', 'h', 'n', 's') THEN
            result := result || CASE WHEN kind = '"' AND size > 1 THEN substr(token, 2, size - 2)
                                     WHEN kind = '\' AND size > 1 THEN substr(token, 2) ELSE token END;
            CONTINUE;
        END IF;
        IF kind = 'm' AND size <= 2 THEN
            next := '';
            FOR j IN i + 1 .. array_length(tokens, 1) LOOP
                next := lower(tokens[j]);
                EXIT WHEN next = 'am/pm' OR left(next, 1) IN ('d', 'm', 'y', 'h', 'n', 's');
                next := '';
            END LOOP;
            IF before = 'h' OR left(next, 1) = 's' THEN kind := 'n'; END IF;
        END IF;
        before := kind;
        result := result || CASE kind
            WHEN 'd' THEN CASE WHEN size > 2 THEN jet_dayname(extract(dow FROM at)::integer, size = 3)
                               WHEN size = 1 THEN jet_day(at)::text ELSE to_char(at, 'DD') END
            WHEN 'm' THEN CASE WHEN size = 3 THEN jet_monthname(jet_month(at), true)
                               WHEN size > 3 AND after_day THEN jet_monthgenitive(jet_month(at))
                               WHEN size > 3 THEN jet_monthname(jet_month(at))
                               WHEN size = 1 THEN jet_month(at)::text ELSE to_char(at, 'MM') END
            WHEN 'y' THEN CASE WHEN size <= 2 THEN to_char(at, 'YY') ELSE to_char(at, 'YYYY') END
            WHEN 'h' THEN CASE WHEN size = 1 THEN h::text ELSE lpad(h::text, 2, '0') END
            WHEN 'n' THEN CASE WHEN size = 1 THEN jet_minute(at)::text ELSE to_char(at, 'MI') END
            ELSE CASE WHEN size = 1 THEN jet_second(at)::text ELSE to_char(at, 'SS') END
        END;
        after_day := after_day OR (kind = 'd' AND size <= 2);
    END LOOP;
    RETURN result;
END $$;

-- Sections "positive;negative;zero"; a missing one is the first. Halves round away from zero.
CREATE OR REPLACE FUNCTION jet_formatnumber(value numeric, pattern text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    sections text[] := string_to_array(pattern, ';');
    section text := sections[1];
    own_negative boolean := false;
    greek boolean;
    sign text := '.';
    separator text := ',';
    c text;
    prefix text := '';
    suffix text := '';
    exponent text[];
    power integer := 0;
    whole_places integer := 0;
    zeros integer := 0;
    places integer := 0;
    fraction_zeros integer := 0;
    grouped boolean := false;
    point boolean := false;
    percent boolean := false;
    has_digits boolean := false;
    whole text;
    fraction text;
BEGIN
    IF pattern = 'general number' THEN RETURN jet_numbertext(value::float8); END IF;
    IF value = 0 THEN
        IF coalesce(sections[3], '') <> '' THEN section := sections[3]; END IF;
    ELSIF value < 0 AND coalesce(sections[2], '') <> '' THEN
        section := sections[2];
        own_negative := true;
    END IF;
    greek := section ~ '\..*,[^.]*$';
    IF greek THEN
        sign := ',';
        separator := '.';
    END IF;
    exponent := regexp_match(section, '^(.*?[0#].*?)([eE])([+-])([0#]+)(.*)$');
    IF exponent IS NOT NULL THEN section := exponent[1] || exponent[5]; END IF;
    FOREACH c IN ARRAY coalesce(string_to_array(section, NULL), '{}') LOOP
        IF c IN ('0', '#') THEN
            has_digits := true;
            IF point THEN
                places := places + 1;
                IF c = '0' THEN fraction_zeros := places; END IF;
            ELSE
                whole_places := whole_places + 1;
                IF c = '0' THEN zeros := zeros + 1; END IF;
            END IF;
        ELSIF c = sign AND NOT point THEN
            point := true;
        ELSIF c = separator AND has_digits THEN
            grouped := grouped OR NOT point;
        ELSE
            percent := percent OR c = '%';
            IF has_digits OR point THEN suffix := suffix || c; ELSE prefix := prefix || c; END IF;
        END IF;
    END LOOP;
    IF NOT has_digits THEN RETURN prefix || suffix; END IF;
    IF percent THEN value := value * 100; END IF;
    IF exponent IS NOT NULL AND value <> 0 THEN
        power := floor(log(abs(value))) + 1;
        IF abs(value) >= ('1e' || power)::numeric THEN power := power + 1; END IF;
        IF abs(value) < ('1e' || (power - 1))::numeric THEN power := power - 1; END IF;
        power := power - whole_places;
        value := round(value * ('1e' || -power)::numeric, places);
        -- Rounding may carry into one more digit.
        IF abs(value) >= ('1e' || whole_places)::numeric THEN
            value := value * 0.1;
            power := power + 1;
        END IF;
    END IF;
    value := round(value, places);
    whole := trunc(abs(value))::text;
    IF whole = '0' THEN whole := ''; END IF;
    whole := repeat('0', zeros - length(whole)) || whole;
    IF grouped THEN whole := reverse(regexp_replace(reverse(whole), '([0-9]{3})(?=[0-9])', '\1.', 'g')); END IF;
    IF point THEN
        fraction := CASE WHEN places = 0 THEN '' ELSE rtrim(split_part(abs(value)::text, '.', 2), '0') END;
        whole := whole || ',' || fraction || repeat('0', fraction_zeros - length(fraction));
    END IF;
    IF exponent IS NOT NULL THEN
        suffix := exponent[2] || CASE WHEN power < 0 THEN '-' WHEN exponent[3] = '+' THEN '+' ELSE '' END
            || repeat('0', length(replace(exponent[4], '#', '')) - length(abs(power)::text)) || abs(power) || suffix;
    END IF;
    RETURN CASE WHEN value < 0 AND NOT own_negative THEN '-' ELSE '' END || prefix || whole || suffix;
END $$;

-- What a pattern wants of a value: '' the text that a user reads, '<' and '>' the same in one case of letters.
CREATE OR REPLACE FUNCTION jet_patternkind(pattern text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE WHEN coalesce(pattern, '') IN ('', '<', '>') THEN coalesce(pattern, '')
        WHEN jet_isdatepattern(pattern) THEN 'date' ELSE 'number' END $$;
CREATE OR REPLACE FUNCTION jet_cased(value text, pattern text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE pattern WHEN '<' THEN jet_lcase(value) WHEN '>' THEN jet_ucase(value) ELSE value END $$;

-- One for each kind of value; Null is an empty text.
CREATE OR REPLACE FUNCTION jet_formatas_n(value float8, pattern text) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT coalesce(CASE jet_patternkind(pattern)
        WHEN 'date' THEN coalesce(jet_formatdate(jet_daystodate(value), pattern), jet_numbertext(value))
        WHEN 'number' THEN jet_formatnumber(value::numeric, pattern)
        ELSE jet_cased(jet_numbertext(value), pattern) END, '') $$;

CREATE OR REPLACE FUNCTION jet_formatas_d(value timestamp, pattern text) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT coalesce(CASE jet_patternkind(pattern)
        WHEN 'date' THEN jet_formatdate(value, pattern)
        WHEN 'number' THEN jet_formatnumber(jet_days(value)::numeric, pattern)
        ELSE jet_cased(jet_datetext(value), pattern) END, '') $$;

CREATE OR REPLACE FUNCTION jet_formatas_t(value text, pattern text) RETURNS text
LANGUAGE sql STABLE PARALLEL SAFE AS $$
    SELECT coalesce(CASE jet_patternkind(pattern)
        WHEN 'date' THEN coalesce(jet_formatdate(jet_todate(value), pattern), value)
        WHEN 'number' THEN coalesce(jet_formatnumber(jet_tonumber(value)::numeric, pattern), value)
        ELSE jet_cased(value, pattern) END, '') $$;

CREATE OR REPLACE FUNCTION jet_formatas_y(value boolean, pattern text) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT coalesce(CASE jet_patternkind(pattern)
        WHEN 'number' THEN jet_formatnumber(-value::integer, pattern)
        ELSE jet_cased(jet_yesnotext(value), pattern) END, '') $$;

CREATE OR REPLACE FUNCTION jet_format_n(value float8, pattern text DEFAULT NULL) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT jet_formatas_n(value, jet_resolved(pattern)) $$;
CREATE OR REPLACE FUNCTION jet_format_d(value timestamp, pattern text DEFAULT NULL) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT jet_formatas_d(value, jet_resolved(pattern)) $$;
CREATE OR REPLACE FUNCTION jet_format_t(value text, pattern text DEFAULT NULL) RETURNS text
LANGUAGE sql STABLE PARALLEL SAFE AS $$ SELECT jet_formatas_t(value, jet_resolved(pattern)) $$;
CREATE OR REPLACE FUNCTION jet_format_y(value boolean, pattern text DEFAULT NULL) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT jet_formatas_y(value, jet_resolved(pattern)) $$;
)sql";

}  // namespace data::postgres
