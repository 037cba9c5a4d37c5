import assert from 'node:assert/strict'
import { it } from 'node:test'
import { assertTellsNothingOfTheInside } from '../support/inside.mjs'

const LIMIT = 64 * 1024
const CALL = ['callFunction', { name: 'GetCurUserType' }]

/** A body of so many bytes that is accepted, but for its size. */
function bodyOf(size) {
  const [start, end] = ['{"in":{"x":"', '"},"login":"linjuan"}']
  return start + 'x'.repeat(size - start.length - end.length) + end
}

export function bodies(services) {
  const post = (body, options = {}) => services.ask(...CALL, { body, ...options })
  const refusedWith = async (statuses, body, options, what = String(body).slice(0, 80)) => {
    const { status, text } = await post(body, options)
    assert.ok([statuses].flat().includes(status), `${what}: ${status} ${text}`)
    assertTellsNothingOfTheInside(text, what)
  }

  it('that are no JSON object are refused', async () => {
    const texts = ['', ' ', '{', '{"in":{}', '{"in":{}}}', '[]', '"x"', '1', 'null', 'true', "{'in':{}}", '{"in":{},}', '{in:{}}',
      '{"in":{}} x', '\ufeff{}', '// x\n{}', '{"login":"linjuan\n"}']
    for (const text of texts) await refusedWith(400, text)
  })

  it('that are no text in UTF-8 are refused', async () => {
    const broken = [[0xff, 0xfe], [0xc0, 0xaf], [0xed, 0xa0, 0x80], [0xf4, 0x90, 0x80, 0x80], [0xe4, 0xb8], [0x80]]
    for (const bytes of broken) {
      const body = Buffer.concat([Buffer.from('{"in":{"x":"'), Buffer.from(bytes), Buffer.from('"},"login":"linjuan"}')])
      await refusedWith(400, body, {}, bytes.join())
    }
    await refusedWith(400, '{"in":{"x":"\\ud800"},"login":"linjuan"}')
    await refusedWith(400, Buffer.from('{"login":"linjuan"}', 'utf16le'), {}, 'UTF-16')
  })

  it('that are nested without end are refused', async () => {
    for (const depth of [100, 1000, 10000, 30000]) {
      await refusedWith([400, 422], `{"in":{"x":${'['.repeat(depth)}${']'.repeat(depth)}},"login":"linjuan"}`, {}, `${depth} lists`)
      await refusedWith(400, '{"in":'.repeat(depth / 10) + '1' + '}'.repeat(depth / 10), {}, `${depth / 10} objects`)
    }
  })

  it('hold inputs of the kinds that functions take, and no others', async () => {
    for (const value of ['""', '"x"', '0', '-5', '9007199254740993', 'true', 'false'])
      assert.equal((await post(`{"in":{"x":${value}},"login":"linjuan"}`)).status, 200, value)
    for (const value of ['null', '1.5', '[]', '{}', '[1]', '1e300', '99999999999999999999', '-0.0'])
      await refusedWith(422, `{"in":{"x":${value}},"login":"linjuan"}`)
  })

  it('hold members of the kinds that are described, and no others', async () => {
    const texts = ['{"in":[],"login":"linjuan"}', '{"in":"x","login":"linjuan"}', '{"in":null,"login":"linjuan"}', '{"login":1}',
      '{"login":null}', '{"login":["linjuan"]}', '{"login":""}', '{"login":"linjuan","domain":"1"}', '{"login":"linjuan","domain":1.5}',
      '{"login":"linjuan","domain":null}', '{"login":"linjuan","domain":99999999999}']
    for (const text of texts) await refusedWith([400, 422], text)
    await refusedWith(400, '{"login":"linjuan","user":"matao"}')
    await refusedWith(400, '{"login":"linjuan","Login":"matao"}')
  })

  it('that hold a login twice open no more than one login', async () => {
    const token = services.token({ logins: 'linjuan' })
    const expected = services.command('call', 'GetOwnDomainIDs', '--user', 'linjuan').out
    for (const [first, second] of [['linjuan', 'matao'], ['matao', 'linjuan']]) {
      const body = `{"login":"${first}","login":"${second}"}`
      const reply = await services.ask('callFunction', { name: 'GetOwnDomainIDs' }, { token, body })
      assert.ok([200, 400, 403].includes(reply.status), body)
      if (reply.status === 200) assert.deepEqual(reply.body.out, expected, body)
    }
  })

  it('that hold the character of value zero are refused', async () => {
    const texts = ['{"in":{"x":"a\\u0000b"},"login":"linjuan"}', '{"in":{"a\\u0000b":"x"},"login":"linjuan"}',
      '{"login":"linjuan\\u0000"}', '{"login":"linjuan"}\0', '{"log\\u0000in":"linjuan"}']
    for (const text of texts) await refusedWith([400, 422], text)
  })

  it('that are too large are refused, declared or in chunks', async () => {
    for (const options of [{}, { withoutLength: true, headers: { 'transfer-encoding': 'chunked' } }]) {
      assert.equal((await post(bodyOf(LIMIT), options)).status, 200)
      await refusedWith(413, bodyOf(LIMIT + 1), options)
      await refusedWith(413, bodyOf(40 * LIMIT), options)
    }
  })

  it('of another type are refused', async () => {
    const types = ['text/plain', 'application/xml', 'application/x-www-form-urlencoded', 'multipart/form-data; boundary=x',
      'application/jsonx', 'application/json5', 'json', '*/*', '', 'application/json, text/plain']
    for (const type of types) await refusedWith(415, { login: 'linjuan' }, { headers: { 'content-type': type } }, type)
    for (const type of ['application/json; charset=utf-8', 'Application/JSON', 'application/json;charset=UTF-8'])
      assert.equal((await post({ login: 'linjuan' }, { headers: { 'content-type': type } })).status, 200, type)
  })

  it('hide no request', async () => {
    const head = (line) => `${line} HTTP/1.1\r\nhost: ${services.server.host}\r\nauthorization: Bearer ${services.all}\r\n`
    const hidden = `${head('GET /api/functions')}\r\n`
    const start = `${head('POST /api/functions/GetCurUserType')}content-type: application/json\r\n`
    const framings = ['content-length: 5\r\ntransfer-encoding: chunked', 'content-length: 5\r\ncontent-length: 6', 'transfer-encoding: xchunked']
    for (const framing of framings) {
      const answers = await services.server.exchange(`${start}${framing}\r\n\r\n${hidden}`)
      assert.equal(answers.match(/HTTP\/1\.1 \d/g).length, 1, answers)
    }
  })
}
