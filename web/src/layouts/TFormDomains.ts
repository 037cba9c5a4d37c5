import { registerRowIcon } from './registry'

registerRowIcon('TFormDomains', 'DomainTree', 'domain')
registerRowIcon('TFormDomains', 'ListViewManagers', 'manager')
registerRowIcon('TFormDomains', 'ListViewAdmin', 'user')
