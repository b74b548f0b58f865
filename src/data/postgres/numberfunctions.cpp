#include "data/postgres/functionscript.h"

namespace data::postgres {

// Numbers travel as double precision, as everywhere on the road; whole results as bigint. What has no answer is Null.
const char numberFunctions[] = R"sql(
CREATE OR REPLACE FUNCTION jet_whole(value float8) RETURNS bigint LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN abs(round(value)) < 9.0e18 THEN round(value)::bigint END $$;

CREATE OR REPLACE FUNCTION jet_count(value float8) RETURNS integer LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN abs(round(value)) < 9.0e18 THEN least(greatest(round(value), 0), 2147483647)::integer ELSE 0 END $$;

CREATE OR REPLACE FUNCTION jet_int(value float8) RETURNS float8 LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT floor(value) $$;

CREATE OR REPLACE FUNCTION jet_fix(value float8) RETURNS float8 LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT trunc(value) $$;

-- Half to even on the decimal digits as a person sees them: 2.675 stands a hair below the half it means.
CREATE OR REPLACE FUNCTION jet_round(value float8, digits float8 DEFAULT 0) RETURNS float8
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    places bigint := coalesce(jet_whole(digits), 0);
    scale float8;
    below float8;
    rest float8;
BEGIN
    IF places < 0 OR places > 22 THEN RETURN NULL; END IF;
    scale := power(10.0::float8, places);
    IF abs(value) > 1e15 / scale THEN RETURN value; END IF;
    below := floor(value * scale);
    rest := value * scale - below;
    IF abs(rest - 0.5) <= 4e-16 * greatest(1.0, abs(value * scale)) THEN
        RETURN (CASE WHEN below - 2 * floor(below / 2) = 0 THEN below ELSE below + 1 END) / scale;
    END IF;
    RETURN (CASE WHEN rest < 0.5 THEN below ELSE below + 1 END) / scale;
END $$;

CREATE OR REPLACE FUNCTION jet_abs(value float8) RETURNS float8 LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT abs(value) $$;
CREATE OR REPLACE FUNCTION jet_abs(value bigint) RETURNS bigint LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT abs(value) $$;

CREATE OR REPLACE FUNCTION jet_sgn(value float8) RETURNS integer LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT sign(value)::integer $$;

CREATE OR REPLACE FUNCTION jet_sqr(value float8) RETURNS float8 LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT CASE WHEN value >= 0 THEN sqrt(value) END $$;

-- The engine's own power fails where the answer is too large or none.
CREATE OR REPLACE FUNCTION jet_power(base float8, exponent float8) RETURNS float8
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
    IF base = 0 THEN RETURN CASE WHEN exponent > 0 THEN 0 WHEN exponent = 0 THEN 1 END; END IF;
    IF base < 0 AND exponent <> floor(exponent) THEN RETURN NULL; END IF;
    IF abs(base) <> 1 AND abs(exponent) > 1e6 / abs(ln(abs(base))) OR exponent * ln(abs(base)) > 709.78 THEN
        RETURN CASE WHEN exponent * ln(abs(base)) < 0 THEN 0 END;
    END IF;
    IF exponent * ln(abs(base)) < -708 THEN RETURN 0; END IF;
    RETURN power(base, exponent);
END $$;

CREATE OR REPLACE FUNCTION jet_wholedivide(a float8, b float8) RETURNS bigint
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT jet_whole(a) / nullif(jet_whole(b), 0) $$;

CREATE OR REPLACE FUNCTION jet_modulo(a float8, b float8) RETURNS bigint
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT jet_whole(a) % nullif(jet_whole(b), 0) $$;

-- Digits with a decimal point, and a power of ten; Null when a number can't be that large.
CREATE OR REPLACE FUNCTION jet_decimal(digits text, exponent integer) RETURNS float8
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    exact numeric;
BEGIN
    IF exponent > 5000 THEN RETURN CASE WHEN digits !~ '[1-9]' THEN 0 END; END IF;
    IF exponent < -5000 THEN RETURN 0; END IF;
    exact := (digits || 'e' || exponent)::numeric;
    IF exact > 1.7976931348623157e308 THEN RETURN NULL; END IF;
    IF exact < 2.3e-308 THEN RETURN 0; END IF;
    RETURN exact::float8;
END $$;

-- The number that a text begins with, with a decimal point; blanks don't count.
CREATE OR REPLACE FUNCTION jet_val(value text) RETURNS float8 LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    parts text[] := regexp_match(left(translate(value, E' \t\r\n', ''), 400),
                                 '^([+-]?)([0-9]*\.?[0-9]*)(?:[eE]([+-]?[0-9]+))?');
    magnitude float8;
BEGIN
    IF parts[2] !~ '[0-9]' THEN RETURN 0; END IF;
    magnitude := jet_decimal(parts[2], least(greatest(coalesce(left(parts[3], 9), '0')::numeric, -9999), 9999)::integer);
    RETURN CASE WHEN parts[1] = '-' THEN -magnitude ELSE magnitude END;
END $$;

-- A text as a number by Greek rules: decimal comma, points between thousands; a lone point is a decimal point
-- unless exactly three digits follow it.
CREATE OR REPLACE FUNCTION jet_tonumber(value text) RETURNS float8 LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    parts text[];
    digits text;
    points integer;
    commas integer;
    magnitude float8;
BEGIN
    IF length(value) > 500 THEN RETURN NULL; END IF;
    parts := regexp_match(btrim(value, E' \t\r\n\f\v\u00a0'),
                          '^([+-]?)([0-9.,]*[0-9][0-9.,]*)(?:[eE]\+?(-?[0-9]{1,4}))?$');
    IF parts IS NULL OR length(btrim(value, E' \t\r\n\f\v\u00a0')) > 400 THEN RETURN NULL; END IF;
    digits := parts[2];
    points := length(digits) - length(replace(digits, '.', ''));
    commas := length(digits) - length(replace(digits, ',', ''));
    IF commas > 1 THEN RETURN NULL; END IF;
    IF commas = 1 THEN
        IF strpos(split_part(digits, ',', 2), '.') > 0
           OR (points > 0 AND split_part(digits, ',', 1) !~ '^[0-9]{1,3}(\.[0-9]{3})+$') THEN
            RETURN NULL;
        END IF;
        digits := replace(replace(digits, '.', ''), ',', '.');
    ELSIF points > 1 THEN
        IF digits !~ '^[0-9]{1,3}(\.[0-9]{3})+$' THEN RETURN NULL; END IF;
        digits := replace(digits, '.', '');
    ELSIF points = 1 AND length(digits) - strpos(digits, '.') = 3 THEN
        digits := replace(digits, '.', '');
    END IF;
    magnitude := jet_decimal(digits, coalesce(parts[3], '0')::integer);
    RETURN CASE WHEN parts[1] = '-' THEN -magnitude ELSE magnitude END;
END $$;
)sql";

}  // namespace data::postgres
