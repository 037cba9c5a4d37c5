import assert from 'node:assert/strict'
import { readFileSync } from 'node:fs'
import { it } from 'node:test'

const text = readFileSync(new URL('../../../host/gateway/openapi.json', import.meta.url), 'utf8')

export function described(services) {
  it('by the document that they serve, without a token', async () => {
    const { status, text: served } = await services.ask('getDocument', {}, { token: null })
    assert.deepEqual([status, served === text], [200, true])
  })

  it('with examples that are answered', async () => {
    for (const operation of services.known.operations.values()) {
      const { given, body } = services.known.exampleOf(operation)
      assert.equal((await services.ask(operation.id, given, { body })).status, 200, operation.id)
    }
  })

  it('with the headers that protect every answer', async () => {
    const refused = { token: null, from: '203.0.113.7' }
    const answers = [await services.ask('listFunctions'), await services.ask('listFunctions', {}, refused), await services.ask('listMenus', { login: 'nobody' })]
    const page = await services.server.get('/healthz')
    const protecting = ['x-content-type-options', 'content-security-policy', 'referrer-policy'].filter((name) => page.headers[name])
    assert.ok(protecting.length > 0)
    for (const { headers } of answers) for (const name of protecting) assert.equal(headers[name], page.headers[name], name)
  })
}
