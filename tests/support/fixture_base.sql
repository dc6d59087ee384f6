-- Base data for database tests: two companies, two suppliers, three products
-- of company 1 with costs and retail prices, and one composition.
-- No configuration rows and no notes: each test adds its own.

INSERT INTO empr (empr_cod, raz, nome_red, cnpj, ie, logr, num, bai, mun, mun_ibge_cod, uf, cep, fone1) VALUES (1, 'Loja Teste Matriz Ltda', 'MATRIZ', '11222333000181', '110042490114', 'Rua das Flores', '100', 'Centro', 'São Paulo', '3550308', 'SP', '01001000', '1130001000');
INSERT INTO empr (empr_cod, raz, nome_red, cnpj, ie, logr, num, bai, mun, mun_ibge_cod, uf, cep, fone1) VALUES (2, 'Filial Norte Comércio Ltda', 'FILIAL NORTE', '11222333000262', '0623079040081', 'Avenida Brasil', '2000', 'Funcionários', 'Belo Horizonte', '3106200', 'MG', '30140000', '3130002000');

INSERT INTO fornec (fornec_cod, nome_red, raz, c, ie, logr, num, bai, mun, mun_ibge_cod, uf, cep, fone, transp) VALUES (1, 'FORNEC SP', 'Fornecedor Paulista Ltda', '44555666000181', '445556660102', 'Rua Augusta', '500', 'Consolação', 'São Paulo', '3550308', 'SP', '01305000', '1130003000', 'N');
INSERT INTO fornec (fornec_cod, nome_red, raz, c, ie, logr, num, bai, mun, mun_ibge_cod, uf, cep, fone, transp) VALUES (2, 'FORNEC PR', 'Fornecedor Paranaense Ltda', '77888999000181', '1234567850', 'Rua XV de Novembro', '700', 'Centro', 'Curitiba', '4106902', 'PR', '80020310', '4130004000', 'S');

INSERT INTO unid (unid_cod, sigla, descr) VALUES (1, 'UN', 'UNIDADE');
INSERT INTO unid (unid_cod, sigla, descr) VALUES (2, 'CX', 'CAIXA');

INSERT INTO trib (trib_cod, descr, perc) VALUES (1, 'ISENTO', 0);
INSERT INTO trib (trib_cod, descr, perc) VALUES (2, 'TRIBUTADO 12', 12);
INSERT INTO trib (trib_cod, descr, perc) VALUES (3, 'TRIBUTADO 17,5', 17.5);

INSERT INTO tab_preco (tab_preco_cod, nome, perc) VALUES (1, 'VAREJO', 0);
INSERT INTO tab_preco (tab_preco_cod, nome, perc) VALUES (2, 'ATACADO', 10);
INSERT INTO tab_preco (tab_preco_cod, nome, perc) VALUES (3, 'PROMOCAO', -5);

INSERT INTO prod_fabr (prod_fabr_cod, nome) VALUES (1, 'FABRICANTE TESTE');

-- Product 3 is a composition (kind 37, the percent sign) made of two units of product 1.
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (1, 'PRODUTO UM', 1, 1, 2, 0, '11010010', '7890000000017', 1, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (2, 'PRODUTO DOIS', 2, 12, 3, 5, '22021000', '7890000000024', 1, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (3, 'PRODUTO TRES COMPOSTO', 1, 1, 1, 0, '19059090', '7890000000031', 1, '5101', '%');

INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (1, 1, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (2, 1, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (3, 1, 50, 'S');

INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 1, 0, 10.00, '2026-01-02');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 2, 0, 4.50, '2026-01-02');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 3, 0, 20.00, '2026-01-02');

INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 1, 13.00, '2026-01-02');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 2, 5.85, '2026-01-02');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 3, 30.00, '2026-01-02');

INSERT INTO prod_barras (bar_cod, prod_cod) VALUES ('17890000000021', 2);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('ABC-001', 1, 1);

INSERT INTO prod_compo (prod_cod_pai, prod_cod_filho, qtd) VALUES (3, 1, 2);
