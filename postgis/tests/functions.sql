-- What the functions return, one parcel at a time; each row says what it asks. A difference stops the script.
\set ON_ERROR_STOP on
SET client_min_messages = warning;

CREATE FUNCTION pg_temp.expect(what text, got text, wanted text) RETURNS void LANGUAGE plpgsql AS $$
BEGIN
    IF got IS DISTINCT FROM wanted THEN
        RAISE EXCEPTION '%: got %, wanted %', what, got, wanted;
    END IF;
END $$;

CREATE TEMPORARY TABLE lot AS SELECT ST_GeomFromText('POLYGON ((0 0, 100 0, 100 50, 0 50, 0 0))', 32632) AS geom;
CREATE TEMPORARY TABLE pond AS
    SELECT ST_GeomFromText('POLYGON ((0 0, 100 0, 100 50, 0 50, 0 0), (45 20, 55 20, 55 30, 45 30, 45 20))', 32632) AS geom;

SELECT pg_temp.expect('a strip along side 1', string_agg(concat_ws(' ', number, amount, area_held, asked, status,
           ST_AsText(line), ST_SRID(piece), round(ST_Area(piece))), '; ' ORDER BY number),
       '1 1 1000 1000 divided LINESTRING(0 10,100 10) 32632 1000; 2 2 4000 4000 divided 32632 4000')
    FROM lot, plcalc_divide(geom, parallel_to => 1, area => 1000);
SELECT pg_temp.expect('a third from vertex 1', string_agg(round(area_held::numeric, 3)::text, ' ' ORDER BY number),
       '1666.667 3333.333') FROM lot, plcalc_divide(geom, through_vertex => 1, share => '1/3');
SELECT pg_temp.expect('five parts', count(*)::text || ' ' || count(line), '5 4')
    FROM lot, plcalc_divide(geom, perpendicular_to => 2, parts => 5);
SELECT pg_temp.expect('a mixed list', string_agg(round(area_held::numeric, 3)::text, ' ' ORDER BY number),
       '500.000 1000.000 500.000 3000.000')
    FROM lot, plcalc_divide(geom, at_bearing => 100, amounts => '500,20x50,10%');
SELECT pg_temp.expect('along a road, on its right', ST_AsText(line), 'LINESTRING(0 40,100 40)')
    FROM lot, plcalc_divide(geom, along => ST_MakeLine(ST_MakePoint(-5, -9, 3), ST_MakePoint(300, -9, 3)), area => 4000)
    WHERE number = 1;
SELECT pg_temp.expect('from a place', ST_AsText(ST_StartPoint(line)), 'POINT(40 0)')
    FROM lot, plcalc_divide(geom, place_side => 1, place_distance => 40, share => '1/2') WHERE number = 1;
SELECT pg_temp.expect('through a point', status, 'divided')
    FROM lot, plcalc_divide(geom, through_point => ST_Point(30, 20), share => '1/2') WHERE number = 1;
SELECT pg_temp.expect('as it is staked out', ST_AsText(line) || ' ' || ends_decimals, 'LINESTRING(0 16.67,100 16.67) 2')
    FROM lot, plcalc_divide(geom, parallel_to => 1, share => '1/3', decimals => 2, tolerance => 1e-3) WHERE number = 1;
SELECT pg_temp.expect('a line through a pond', ST_AsText(line) || ' ' || ST_NRings(piece),
       'MULTILINESTRING((0 25,45 25),(55 25,100 25)) 1')
    FROM pond, plcalc_divide(geom, parallel_to => 1, share => '1/2', any_pieces => true) WHERE number = 1;
SELECT pg_temp.expect('a pond in the rest', ST_NRings(piece)::text, '2')
    FROM pond, plcalc_divide(geom, parallel_to => 1, area => 1000) WHERE number = 2;

SELECT pg_temp.expect('10 before the south side of the pond', ST_AsText(line), 'LINESTRING(0 10,100 10)')
    FROM pond, plcalc_divide(geom, parallel_to => 5, area => 3900, any_pieces => true) WHERE number = 1;
SELECT pg_temp.expect('from a corner of the pond', status, 'divided')
    FROM pond, plcalc_divide(geom, through_vertex => 7, share => '1/2', any_pieces => true) WHERE number = 1;
SELECT pg_temp.expect('the second line that holds it', string_agg(round(ST_X(ST_StartPoint(line)))::text, ' ' ORDER BY other),
       '0 20') FROM generate_series(1, 2) AS other,
    plcalc_divide('POLYGON ((0 0, 30 0, 30 30, 20 30, 20 10, 10 10, 10 30, 0 30, 0 0))', parallel_to => 1, opposite => true,
                  area => 100, alternative => other) WHERE number = 1;

-- What is wrong with a parcel is a row.
SELECT pg_temp.expect('too much', concat_ws(' ', number, piece, line, area_held, status, reason),
       'amount_too_large the amount is not below what there is to cut')
    FROM lot, plcalc_divide(geom, parallel_to => 1, area => 5000);
SELECT pg_temp.expect('a bow tie', status, 'unusable_boundary')
    FROM plcalc_divide('POLYGON ((0 0, 10 10, 10 0, 0 10, 0 0))', parallel_to => 1, area => 5);
SELECT pg_temp.expect('degrees', status, 'degrees')
    FROM plcalc_divide(ST_GeomFromText('POLYGON ((0 0, 1 0, 1 1, 0 1, 0 0))', 4326), parallel_to => 1, share => '1/2');
SELECT pg_temp.expect('nothing', status, 'no_parcel') FROM plcalc_divide(NULL, parallel_to => 1, share => '1/2');
SELECT pg_temp.expect('a line', status, 'no_polygon') FROM plcalc_divide('LINESTRING (0 0, 1 1)', parallel_to => 1, parts => 2);
SELECT pg_temp.expect('an empty polygon', status, 'unusable_boundary')
    FROM plcalc_divide('POLYGON EMPTY', parallel_to => 1, parts => 2);
SELECT pg_temp.expect('two polygons', status, 'no_polygon')
    FROM plcalc_divide('MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)), ((5 5, 6 5, 6 6, 5 5)))', parallel_to => 1, parts => 2);
SELECT pg_temp.expect('a multipolygon of one', count(*)::text, '2')
    FROM plcalc_divide('MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)))', parallel_to => 1, parts => 2);
SELECT pg_temp.expect('a column without a value', status, 'no_amount') FROM lot, plcalc_divide(geom, parallel_to => 1);
SELECT pg_temp.expect('no such side', status, 'no_such_index') FROM lot, plcalc_divide(geom, parallel_to => 5, parts => 2);
SELECT pg_temp.expect('no such side of a hole', status, 'no_such_index')
    FROM pond, plcalc_divide(geom, parallel_to => 9, parts => 2);
SELECT pg_temp.expect('no further line', status, 'no_further_line')
    FROM lot, plcalc_divide(geom, parallel_to => 1, parts => 2, alternative => 2);

SELECT pg_temp.expect('measured', concat_ws(' ', area, perimeter, vertices, anticlockwise, status), '4900 340 8 t usable')
    FROM pond, plcalc_measure(geom);
SELECT pg_temp.expect('measured, a bow tie', concat_ws(' ', area, status), 'meets_itself')
    FROM plcalc_measure('POLYGON ((0 0, 10 10, 10 0, 0 10, 0 0))');
SELECT pg_temp.expect('what can be had', concat_ws(' ', least_area, most_area, least_is_had, status), '0 5000 f feasible')
    FROM lot, plcalc_feasible(geom, parallel_to => 1);
SELECT pg_temp.expect('through the middle', concat_ws(' ', round(least_area::numeric, 6), round(most_area::numeric, 6)),
       '2500.000000 2500.000000') FROM lot, plcalc_feasible(geom, through_point => ST_Point(50, 25));
SELECT pg_temp.expect('of a side that there is not', status, 'no_such_index')
    FROM lot, plcalc_feasible(geom, parallel_to => 9);

-- A call that asks for two things, or for none, is a mistake.
DO $$
DECLARE
    call text;
BEGIN
    FOREACH call IN ARRAY ARRAY['parts => 2', 'parallel_to => 1, at_bearing => 5, parts => 2',
                                'parallel_to => 0, parts => 2', 'parallel_to => 1, parts => 2, area => 5',
                                'parallel_to => 1, parts => 2, alternative => 0',
                                'parallel_to => 1, share => ''a third'''] LOOP
        BEGIN
            EXECUTE 'SELECT count(*) FROM lot, plcalc_divide(geom, ' || call || ')';
        EXCEPTION WHEN external_routine_exception THEN
            CONTINUE;
        END;
        RAISE EXCEPTION '% was taken for a request', call;
    END LOOP;
END $$;
